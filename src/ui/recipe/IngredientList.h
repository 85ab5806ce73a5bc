#pragma once

#include "ui/recipe/IngredientLine.h"
#include "ui/recipe/RowList.h"

#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// The ingredient lines of the recipe that is shown. Scaling changes rows, it does not replace them.
class IngredientList : public RowList<IngredientLine>
{
    Q_OBJECT
    QML_NAMED_ELEMENT(IngredientList)
    QML_UNCREATABLE("made by the recipe's view model")

public:
    enum Role { TextRole = Qt::UserRole + 1, RichTextRole, HeadingRole };

    using RowList::RowList;

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace ovrin
