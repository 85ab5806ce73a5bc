#include "ui/recipe/IngredientList.h"

#include "ui/recipe/RowSync.h"

namespace ovrin {

void IngredientList::setLines(const QList<IngredientLine>& lines)
{
    syncRows(
        m_lines, lines, [this](int row) { Q_EMIT dataChanged(index(row), index(row)); },
        [this](int first, int last, const auto& change) {
            beginInsertRows({}, first, last);
            change();
            endInsertRows();
        },
        [this](int first, int last, const auto& change) {
            beginRemoveRows({}, first, last);
            change();
            endRemoveRows();
        });
}

int IngredientList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant IngredientList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const IngredientLine& line = m_lines.at(index.row());
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
