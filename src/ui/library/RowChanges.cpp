#include "ui/library/RowChanges.h"

#include <unordered_set>

namespace ovrin {

std::vector<RowChange> rowChanges(const std::vector<RecipePtr>& now, const std::vector<RecipePtr>& wanted,
                                  qsizetype mostRuns)
{
    std::unordered_set<const Recipe*> isWanted;
    for (const RecipePtr& recipe : wanted)
        isWanted.insert(recipe.get());

    std::vector<RowChange> changes;
    const auto add = [&changes](RowChange change) {
        if (change.count > 0)
            changes.push_back(change);
    };
    const auto nowCount = static_cast<qsizetype>(now.size());
    const auto wantedCount = static_cast<qsizetype>(wanted.size());
    qsizetype old = 0;
    qsizetype row = 0;
    while (old < nowCount || row < wantedCount) {
        if (static_cast<qsizetype>(changes.size()) >= mostRuns) {
            add({RowChange::Remove, row, nowCount - old, 0});
            add({RowChange::Insert, row, wantedCount - row, row});
            break;
        }
        const qsizetype firstOld = old;
        while (old < nowCount && !isWanted.contains(now[old].get()))
            ++old;
        add({RowChange::Remove, row, old - firstOld, 0});
        const qsizetype firstRow = row;
        while (row < wantedCount && (old == nowCount || wanted[row] != now[old]))
            ++row;
        add({RowChange::Insert, firstRow, row - firstRow, firstRow});
        while (old < nowCount && row < wantedCount && now[old] == wanted[row])
            ++old, ++row;
    }
    return changes;
}

} // namespace ovrin
