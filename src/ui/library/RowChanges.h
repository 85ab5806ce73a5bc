#pragma once

#include "model/Recipe.h"

#include <vector>

namespace ovrin {

/// One run of rows to take out of a list or to put into it.
struct RowChange
{
    enum Kind { Remove, Insert };

    Kind kind = Remove;
    /// Where the run starts when all changes before this one have been made.
    qsizetype row = 0;
    qsizetype count = 0;
    /// Of an insertion: where the run starts in the new list.
    qsizetype source = 0;

    bool operator==(const RowChange&) const = default;
};

/// What turns `now` into `wanted`, two lists in the same order without repetitions. Rows that are in both
/// stay.
///
/// After `mostRuns` runs the rest is replaced as a whole: views spend time on each run, a search can make
/// thousands of them, and what stands that far down is not seen.
std::vector<RowChange> rowChanges(const std::vector<RecipePtr>& now, const std::vector<RecipePtr>& wanted,
                                  qsizetype mostRuns = 48);

} // namespace ovrin
