#include "ui/recipe/IngredientList.h"

namespace ovrin {

QVariant IngredientList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const IngredientLine& line = rows().at(index.row());
    switch (role) {
    case TextRole:
    case Qt::DisplayRole:
        return line.text;
    case RichTextRole:
        return line.richText();
    case HeadingRole:
        return line.isHeading;
    default:
        return {};
    }
}

QHash<int, QByteArray> IngredientList::roleNames() const
{
    return {{TextRole, "lineText"}, {RichTextRole, "richText"}, {HeadingRole, "isHeading"}};
}

} // namespace ovrin
