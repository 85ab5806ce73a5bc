#include "import/document/PageBands.h"

#include "import/document/RecipeSections.h"

#include <array>
#include <cmath>

namespace ovrin {

namespace {

constexpr qsizetype leastLinesPerSide = 3;
/// The least blank space between two columns, in letters.
constexpr double leastGutter = 1.6;
/// Places that are tried for a gutter, from the page's left edge to its right one.
constexpr int candidates = 200;

bool crosses(const TextLine& line, double x)
{
    return line.place.left() <= x && line.place.right() >= x;
}

template<typename Is>
double firstTop(const QList<TextLine>& lines, qsizetype begin, qsizetype end, Is is)
{
    for (qsizetype i = begin; i < end; ++i) {
        if (is(i)) {
            return lines[i].place.top();
        }
    }
    return 0;
}

/// The end of the band without a heading that stands below both columns and above more text that spans
/// them.
qsizetype withoutFoot(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end,
                      const PageMeasure& measure)
{
    constexpr qsizetype longestFoot = 4;
    qsizetype foot = end;
    bool footIsLarge = false;
    double rightBottom = 0;
    for (qsizetype i = begin; i < end; ++i) {
        rightBottom =
            lines[i].place.left() > x ? std::max(rightBottom, lines[i].place.bottom()) : rightBottom;
    }
    if (end == lines.size() || !crosses(lines[end], x)) {
        return end;
    }
    for (qsizetype i = end - 1; i > begin && i + longestFoot >= end; --i) {
        const QRectF& place = lines[i].place;
        const bool apart = place.top() - lines[i - 1].place.bottom() > 0.5 * measure.height;
        const bool isLarge = place.height() > 1.12 * measure.height;
        if (place.top() <= rightBottom || place.right() > x) {
            break;
        }
        if (isLarge || (apart && !footIsLarge)) {
            foot = i;
            footIsLarge = isLarge;
        }
    }
    return foot;
}

/// The band around `x` without the lines at its head that have nothing beside them; weight 0 where it is
/// no band of columns.
Band trimmed(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end, qsizetype leastRows,
             const PageMeasure& measure)
{
    const auto isLeft = [&](qsizetype i) { return lines[i].place.right() < x; };
    const double leftTop = firstTop(lines, begin, end, isLeft);
    const double rightTop = firstTop(lines, begin, end, [&](qsizetype i) { return !isLeft(i); });
    // What stands alone above both columns and apart from them is not theirs.
    const double top = std::max(leftTop, rightTop);
    for (qsizetype i = begin; i + 1 < end && lines[i].place.bottom() <= top; ++i) {
        if (lines[i + 1].place.top() - lines[i].place.bottom() > 0.9 * measure.height) {
            begin = i + 1;
        }
    }
    // The last, short line of a text that spans both is not theirs either.
    if (begin > 0 && begin + 1 < end && crosses(lines[begin - 1], x) && lines[begin].place.bottom() <= top &&
        lines[begin].place.top() - lines[begin - 1].place.bottom() < 0.6 * measure.height &&
        std::abs(lines[begin].place.left() - lines[begin - 1].place.left()) < measure.letter) {
        ++begin;
    }
    end = withoutFoot(lines, x, begin, end, measure);
    Band band{begin, end, 0, 0, 1};
    qsizetype beside = 0;
    qsizetype leftRows = 0;
    qsizetype rightRows = 0;
    double leftBottom = 0;
    double rightBottom = 0;
    for (qsizetype i = begin; i < end; ++i) {
        const QRectF& place = lines[i].place;
        double& bottom = isLeft(i) ? leftBottom : rightBottom;
        if (place.center().y() > bottom) {
            ++(isLeft(i) ? leftRows : rightRows);
        }
        bottom = std::max(bottom, place.bottom());
        if (isLeft(i)) {
            band.left = std::max(band.left, place.right());
        } else {
            band.right = std::min(band.right, place.left());
        }
    }
    band.weight = std::min(leftRows, rightRows);
    if (band.weight < leastRows || band.right - band.left < leastGutter * measure.letter) {
        return {};
    }
    // Lines one above the other are no columns, however far they are set in.
    for (qsizetype i = begin; i < end; ++i) {
        const double other = isLeft(i) ? rightTop : leftTop;
        const double otherBottom = isLeft(i) ? rightBottom : leftBottom;
        beside += lines[i].place.bottom() > other && lines[i].place.top() < otherBottom ? 1 : 0;
    }
    return beside > leastRows ? band : Band();
}

} // namespace

Band PageBands::best(const QList<TextLine>& lines, const PageMeasure& measure, std::optional<double> gutter)
{
    Band best;
    for (int step = 1; step < candidates; ++step) {
        const double x = static_cast<double>(step) / candidates;
        for (qsizetype begin = 0; begin < lines.size();) {
            if (crosses(lines[begin], x)) {
                ++begin;
                continue;
            }
            qsizetype end = begin + 1;
            while (end < lines.size() && !crosses(lines[end], x)) {
                ++end;
            }
            const bool isKnown = gutter && std::abs(x - *gutter) < 1.0 / candidates;
            const Band band = trimmed(lines, x, begin, end, isKnown ? 1 : leastLinesPerSide, measure);
            if (band.rank() > best.rank()) {
                best = band;
            }
            begin = end;
        }
    }
    return best;
}

qsizetype PageBands::headingAcross(const QList<TextLine>& lines, const Band& band, const PageMeasure& measure)
{
    struct Side
    {
        qsizetype above = 0;
        qsizetype below = 0;
        double top = 0;
    };
    for (qsizetype i = band.begin + 1; i < band.end; ++i) {
        const QRectF& place = lines[i].place;
        // Only the recipe's own parts span columns: a tip's heading stands in one of them.
        const HeadingKind kind = headingOf(lines[i].text).kind;
        if (kind != HeadingKind::Ingredients && kind != HeadingKind::Directions) {
            continue;
        }
        std::array<Side, 2> sides;
        bool isAlone = true;
        for (qsizetype k = band.begin; k < band.end && isAlone; ++k) {
            const QRectF& other = lines[k].place;
            Side& side = sides.at(other.center().x() < band.middle() ? 0 : 1);
            isAlone = k == i || other.bottom() <= place.top() + 0.2 * measure.height ||
                      other.top() >= place.bottom() - 0.2 * measure.height;
            if (k < i) {
                ++side.above;
            } else if (k > i && side.below++ == 0) {
                side.top = other.top();
            }
        }
        if (isAlone && sides[0].above > 0 && sides[1].above > 0 && sides[0].below > 0 && sides[1].below > 0 &&
            std::abs(sides[0].top - sides[1].top) < 0.4 * measure.height) {
            return i;
        }
    }
    return 0;
}

} // namespace ovrin
