#pragma once

#include "import/document/PageMeasure.h"

#include <optional>

namespace ovrin {

/// Numbered steps that stand beside each other and are read along the rows: 1 2 3, below them 4 5 6.
struct PageTiles
{
    /// They are made of the lines from `begin` to before `end`.
    qsizetype begin = 0;
    qsizetype end = 0;
    /// In the order of their numbers, the lines of each from top to bottom. Empty when other text stands to
    /// the left of them: then `sidebar` parts the lines from `begin` to `end` into two columns, of which the
    /// right one has the tiles.
    QList<QList<TextLine>> tiles;
    std::optional<double> sidebar;

    /// The tiles among `lines`, which are sorted by their tops; none where the numbers do not count along the
    /// rows, or where something else stands beside them.
    static PageTiles of(const QList<TextLine>& lines, const PageMeasure& measure);
};

} // namespace ovrin
