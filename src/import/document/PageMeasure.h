#pragma once

#include "import/document/TextLine.h"

#include <algorithm>
#include <vector>

namespace ovrin {

/// The middle one of `values`, of which there is at least one; of an even number the higher one.
template<typename T>
T medianOf(std::vector<T> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// What lengths on a page are measured by, as parts of the page.
struct PageMeasure
{
    /// Of some lines that have places, of which there is at least one.
    static PageMeasure of(const QList<TextLine>& lines);

    /// Width of an average letter.
    double letter = 0;
    /// Height of a line of its text.
    double height = 0;

    /// Whether the two stand on one line.
    bool isSameRow(const TextLine& a, const TextLine& b) const;
};

} // namespace ovrin
