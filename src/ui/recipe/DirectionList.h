#pragma once

#include "ui/recipe/DirectionText.h"

#include <QtCore/QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// The directions, one row a paragraph. The first paragraph of a step carries its number and title.
class DirectionList : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(DirectionList)
    QML_UNCREATABLE("made by the recipe's view model")

public:
    struct Row
    {
        /// Of the step that the paragraph opens; 0 otherwise.
        int stepNumber = 0;
        QString stepTitle;
        DirectionParagraph paragraph;

        bool operator==(const Row&) const = default;
    };
    enum Role {
        StepNumberRole = Qt::UserRole + 1,
        StepTitleRole,
        TextRole,
        LinksRole, ///< list of maps with "address", "text" and "isTimer"
    };

    using QAbstractListModel::QAbstractListModel;

    void setRows(const QList<Row>& rows);
    const QList<Row>& rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// See DirectionParagraph::richText.
    Q_INVOKABLE QString richText(int row, const QString& textColor, const QString& accentColor,
                                 const QString& focusColor, int focused, int weight = 600,
                                 int glyphSize = 15) const;

private:
    QList<Row> m_rows;
};

} // namespace ovrin
