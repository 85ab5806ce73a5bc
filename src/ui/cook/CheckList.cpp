#include "ui/cook/CheckList.h"

#include "text/IngredientScaler.h"

namespace ovrin {

void CheckList::setLines(const QStringList& lines)
{
    if (lines == m_lines)
        return;
    beginResetModel();
    m_lines = lines;
    m_checked.removeIf([&](int row) { return row >= lines.size(); });
    endResetModel();
}

void CheckList::toggle(int row)
{
    if (row < 0 || row >= m_lines.size() || IngredientScaler::isSectionHeading(m_lines.at(row)))
        return;
    if (!m_checked.remove(row))
        m_checked.insert(row);
    Q_EMIT dataChanged(index(row), index(row), {CheckedRole});
}

int CheckList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant CheckList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case TextRole:
        return m_lines.at(index.row());
    case CheckedRole:
        return m_checked.contains(index.row());
    case HeadingRole:
        return IngredientScaler::isSectionHeading(m_lines.at(index.row()));
    default:
        return {};
    }
}

QHash<int, QByteArray> CheckList::roleNames() const
{
    return {{TextRole, "text"}, {CheckedRole, "checked"}, {HeadingRole, "heading"}};
}

} // namespace ovrin
