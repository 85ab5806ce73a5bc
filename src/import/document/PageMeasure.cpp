#include "import/document/PageMeasure.h"

#include "import/document/LineShape.h"

#include <cmath>

namespace ovrin {

PageMeasure PageMeasure::of(const QList<TextLine>& lines)
{
    std::vector<double> letters;
    std::vector<double> heights;
    for (const TextLine& line : lines) {
        letters.push_back(line.place.width() / std::max(1.0, LineShape::estimatedWidth(line.text)));
        heights.push_back(line.place.height());
    }
    return {medianOf(std::move(letters)), medianOf(std::move(heights))};
}

bool PageMeasure::isSameRow(const TextLine& a, const TextLine& b) const
{
    return std::abs(a.place.bottom() - b.place.bottom()) < 0.4 * height;
}

} // namespace ovrin
