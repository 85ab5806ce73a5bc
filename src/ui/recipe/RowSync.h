#pragma once

#include <QtCore/QList>

namespace ovrin {

/// How a list model takes over a new list whose rows mostly correspond by position: differing rows are
/// reported as changed one by one, rows at the end as inserted or removed. `begin...`/`end...` are the
/// model's own protected functions, so they come in as callables.
template<typename T, typename Changed, typename Insert, typename Remove>
void syncRows(QList<T>& rows, const QList<T>& wanted, Changed changed, Insert insert, Remove remove)
{
    const qsizetype common = qMin(rows.size(), wanted.size());
    for (qsizetype row = 0; row < common; ++row)
        if (!(rows.at(row) == wanted.at(row))) {
            rows[row] = wanted.at(row);
            changed(static_cast<int>(row));
        }
    const int oldLast = static_cast<int>(rows.size()) - 1;
    const int newLast = static_cast<int>(wanted.size()) - 1;
    if (newLast < oldLast)
        remove(newLast + 1, oldLast, [&] { rows.resize(common); });
    else if (newLast > oldLast)
        insert(oldLast + 1, newLast, [&] { rows.append(wanted.sliced(common)); });
}

} // namespace ovrin
