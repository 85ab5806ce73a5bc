#pragma once

#include "import/document/PageMeasure.h"

#include <optional>
#include <tuple>

namespace ovrin {

/// A gutter in a part of the page: the lines from `begin` to before `end`, sorted by their tops, lie on
/// either side of it.
struct Band
{
    qsizetype begin = 0;
    qsizetype end = 0;
    /// Rows on the side that has fewer.
    qsizetype weight = 0;
    double left = 0;
    double right = 0;

    double middle() const { return (left + right) / 2; }
    auto rank() const { return std::tuple(weight, end - begin, right - left); }
};

namespace PageBands {

/// The band of two columns, among `lines` sorted by their tops, whose lesser column holds most rows; weight 0
/// where there is none. `gutter` is one that the lines above or below have, so that fewer lines show that
/// these have it too.
Band best(const QList<TextLine>& lines, const PageMeasure& measure, std::optional<double> gutter);

/// The first line inside the band from which on its columns are about something else: a heading of the
/// recipe that has nothing beside it and both columns going on below it. 0 where there is none.
qsizetype headingAcross(const QList<TextLine>& lines, const Band& band, const PageMeasure& measure);

} // namespace PageBands

} // namespace ovrin
