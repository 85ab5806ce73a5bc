#pragma once

#include "ui/recipe/IngredientLine.h"

#include <QtCore/QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// The ingredient lines of the recipe that is shown. Scaling changes rows, it does not replace them.
class IngredientList : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(IngredientList)
    QML_UNCREATABLE("made by the recipe's view model")

public:
    enum Role { TextRole = Qt::UserRole + 1, RichTextRole, HeadingRole };

    using QAbstractListModel::QAbstractListModel;

    void setLines(const QList<IngredientLine>& lines);
    const QList<IngredientLine>& lines() const { return m_lines; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QList<IngredientLine> m_lines;
};

} // namespace ovrin
