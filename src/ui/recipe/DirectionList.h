#pragma once

#include "ui/recipe/DirectionText.h"
#include "ui/recipe/RowList.h"

#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// A paragraph of the directions, with what stands above it.
struct DirectionRow
{
    /// Of the step that the paragraph opens; 0 otherwise.
    int stepNumber = 0;
    QString stepTitle;
    DirectionParagraph paragraph;

    bool operator==(const DirectionRow&) const = default;
};

/// The directions, one row a paragraph. The first paragraph of a step carries its number and title.
class DirectionList : public RowList<DirectionRow>
{
    Q_OBJECT
    QML_NAMED_ELEMENT(DirectionList)
    QML_UNCREATABLE("made by the recipe's view model")

public:
    enum Role {
        StepNumberRole = Qt::UserRole + 1,
        StepTitleRole,
        TextRole,
        LinksRole, ///< list of maps with "address", "text" and "isTimer"
    };

    using RowList::RowList;

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// See DirectionParagraph::richText.
    Q_INVOKABLE QString richText(int row, const QString& textColor, const QString& accentColor,
                                 const QString& focusColor, int focused, int weight = 600,
                                 int glyphSize = 15) const;
};

} // namespace ovrin
