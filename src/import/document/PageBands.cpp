#include "import/document/PageBands.h"

#include "import/document/PageRows.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeSections.h"

#include <array>
#include <cmath>
#include <vector>

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

/// Whether the lines at `begin` and after it head the list and the method, on either side of `x`.
bool arePartHeadings(const QList<TextLine>& lines, double x, qsizetype begin, const PageMeasure& measure,
                     const PageHeadings& headings)
{
    const TextLine& a = lines[begin];
    const TextLine& b = lines[begin + 1];
    return measure.isSameRow(a, b) && (a.place.right() < x) != (b.place.right() < x) && headings.isPart(a) &&
           headings.isPart(b) && headings.of(a) != headings.of(b);
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

/// The first line that heads another part, or is a fact and stands apart, below all that stands to the right
/// of `x`, or far from it: what follows a text in two columns, set as wide as it needs. `end` where there is
/// none.
qsizetype partBelow(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end,
                    const PageMeasure& measure, const PageHeadings& headings)
{
    constexpr double farApart = 4;
    constexpr double none = 1;
    // Where the next line to the right of `x` begins, from each line on.
    std::vector<double> nextRight(static_cast<std::size_t>(end - begin) + 1, none);
    double left = 1;
    for (qsizetype i = end - 1; i >= begin; --i) {
        const QRectF& place = lines[i].place;
        const auto k = static_cast<std::size_t>(i - begin);
        nextRight[k] = place.left() > x ? place.top() : nextRight[k + 1];
        left = std::min(left, place.left());
    }
    double bottom = 0;
    double rightBottom = 0;
    for (qsizetype i = begin; i < end; ++i) {
        const QRectF& place = lines[i].place;
        const double rightTop = nextRight[static_cast<std::size_t>(i - begin)];
        const bool isLast = rightTop == none;
        const bool isApart = place.top() - bottom > 0.5 * measure.height && place.right() < x;
        const bool isFact = isLast && place.left() - left < measure.letter && headings.isFact(lines[i]);
        const HeadingKind kind = headings.of(lines[i]);
        const bool isPart =
            isLast ? kind != HeadingKind::None
                   : kind == HeadingKind::Other && rightTop - rightBottom > farApart * measure.height;
        if (isApart && place.top() > rightBottom && rightTop > place.bottom() && (isFact || isPart)) {
            return i;
        }
        bottom = std::max(bottom, place.bottom());
        rightBottom = place.left() > x ? std::max(rightBottom, place.bottom()) : rightBottom;
    }
    return end;
}

/// Whether line `begin` stands above all others up to `end`, in larger type or apart from them: a title in
/// the middle of the page. The heading of a column is its own, and so is a line that begins where the
/// column's next one does.
bool standsAlone(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end,
                 const PageMeasure& measure, const PageHeadings& headings)
{
    constexpr double largerType = 1.15;
    const QRectF& place = lines[begin].place;
    const double gap = lines[begin + 1].place.top() - place.bottom();
    const auto isBelow = [&](const TextLine& other) {
        return other.place.top() >= place.bottom() - 0.2 * measure.height;
    };
    if (headings.of(lines[begin]) != HeadingKind::None ||
        !std::all_of(lines.begin() + begin + 1, lines.begin() + end, isBelow)) {
        return false;
    }
    const bool isLeft = place.right() < x;
    QList<QRectF> own{place};
    for (qsizetype i = begin + 1; i < end && own.size() < 3; ++i) {
        if ((lines[i].place.right() < x) == isLeft) {
            own.append(lines[i].place);
        }
    }
    const bool isSpaced =
        own.size() < 3 || own[1].top() - own[0].top() < own[2].top() - own[1].top() + 0.5 * measure.height;
    const bool isOfColumn =
        own.size() > 1 && std::abs(own[1].left() - place.left()) < measure.letter && isSpaced;
    return place.height() > largerType * measure.height || (gap > 0.9 * measure.height && !isOfColumn);
}

/// Where the column that begins higher has a title in it, above the `top` of the other one, or ends there in
/// a heading that does not stand over what follows in that column: what is below that.
qsizetype behindTitle(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end, double top,
                      const PageMeasure& measure, const PageHeadings& headings)
{
    constexpr double titleType = 1.5;
    qsizetype below = begin;
    bool hasTitle = false;
    for (; below < end && lines[below].place.bottom() <= top; ++below) {
        hasTitle = hasTitle || (lines[below].place.height() > titleType * measure.height &&
                                headings.of(lines[below]) == HeadingKind::None);
    }
    if (hasTitle || below == begin || headings.of(lines[below - 1]) == HeadingKind::None) {
        return hasTitle ? below : begin;
    }
    const QRectF& heading = lines[below - 1].place;
    const auto stands = [&](double a, double b) { return std::abs(a - b) < measure.letter; };
    const bool isOver = std::any_of(lines.begin() + below, lines.begin() + end, [&](const TextLine& line) {
        return (line.place.right() < x) == (heading.right() < x) && headings.of(line) == HeadingKind::None &&
               (stands(line.place.left(), heading.left()) ||
                stands(line.place.center().x(), heading.center().x()));
    });
    return isOver ? begin : below;
}

/// The row inside the band that heads the list on one side of `x` and the method on the other, where what
/// stands above it is no text in two columns; `begin` where there is none.
qsizetype rowOfPartHeadings(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end,
                            const PageMeasure& measure, const PageHeadings& headings)
{
    // Of each side's lines above, besides facts.
    qsizetype left = 0;
    qsizetype right = 0;
    double bottom = 0;
    for (qsizetype i = begin; i + 1 < end; ++i) {
        const TextLine& line = lines[i];
        const double top = std::min(line.place.top(), lines[i + 1].place.top());
        if (arePartHeadings(lines, x, i, measure, headings)) {
            return bottom < top + 0.5 * measure.height && std::min(left, right) < 2 ? i : begin;
        }
        if (headings.isPart(line)) {
            return begin;
        }
        (line.place.right() < x ? left : right) += headings.isFact(line) ? 0 : 1;
        bottom = std::max(bottom, line.place.bottom());
    }
    return begin;
}

/// The band around `x` without the lines at its head that have nothing beside them; weight 0 where it is
/// no band of columns.
Band trimmed(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end, qsizetype leastRows,
             const PageMeasure& measure, const PageHeadings& headings)
{
    const auto isLeft = [&](qsizetype i) { return lines[i].place.right() < x; };
    begin = rowOfPartHeadings(lines, x, begin, end, measure, headings);
    const double leftTop = firstTop(lines, begin, end, isLeft);
    const double rightTop = firstTop(lines, begin, end, [&](qsizetype i) { return !isLeft(i); });
    const double top = std::max(leftTop, rightTop);
    // What stands alone above both columns and apart from them is not theirs.
    begin = behindTitle(lines, x, begin, end, top, measure, headings);
    while (begin + 1 < end && standsAlone(lines, x, begin, end, measure, headings)) {
        ++begin;
    }
    // The last, short line of a text that spans both is not theirs either.
    if (begin > 0 && begin + 1 < end && crosses(lines[begin - 1], x) && lines[begin].place.bottom() <= top &&
        lines[begin].place.top() - lines[begin - 1].place.bottom() < 0.6 * measure.height &&
        std::abs(lines[begin].place.left() - lines[begin - 1].place.left()) < measure.letter) {
        ++begin;
    }
    end = partBelow(lines, x, begin, withoutFoot(lines, x, begin, end, measure), measure, headings);
    // A heading below all else in the band heads what follows the band.
    while (end - 1 > begin && headings.of(lines[end - 1]) != HeadingKind::None &&
           lines[end - 1].place.top() - lines[end - 2].place.bottom() > -0.2 * measure.height) {
        --end;
    }
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
    // Two headings beside each other head two columns, however short.
    leastRows = begin + 1 < end && arePartHeadings(lines, x, begin, measure, headings) ? 1 : leastRows;
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

PageHeadings::PageHeadings(const QList<TextLine>& lines)
{
    for (const TextLine& line : lines) {
        const HeadingKind kind = headingOf(line.text).kind;
        if (kind != HeadingKind::None) {
            m_kinds.insert(line.text, kind);
        }
        if (RecipeFacts::isFact(line.text) || RecipeFacts::isBareLabel(line.text)) {
            m_facts.insert(line.text);
        }
    }
}

Band PageBands::best(const QList<TextLine>& lines, const PageMeasure& measure, const PageHeadings& headings,
                     std::optional<double> gutter)
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
            const Band band =
                trimmed(lines, x, begin, end, isKnown ? 1 : leastLinesPerSide, measure, headings);
            if (band.rank() > best.rank()) {
                best = band;
            }
            begin = end;
        }
    }
    return best;
}

qsizetype PageBands::headingAcross(const QList<TextLine>& lines, const Band& band, const PageMeasure& measure,
                                   const PageHeadings& headings)
{
    struct Side
    {
        qsizetype above = 0;
        QList<TextLine> below;
    };
    for (qsizetype i = band.begin + 1; i < band.end; ++i) {
        // Only the recipe's own parts span columns: a tip's heading stands in one of them.
        if (!headings.isPart(lines[i])) {
            continue;
        }
        const QRectF& place = lines[i].place;
        std::array<Side, 2> sides;
        bool isAlone = true;
        bool isOtherPart = false;
        for (qsizetype k = band.begin; k < band.end && isAlone; ++k) {
            const QRectF& other = lines[k].place;
            Side& side = sides.at(other.center().x() < band.middle() ? 0 : 1);
            isAlone = k == i || other.bottom() <= place.top() + 0.2 * measure.height ||
                      other.top() >= place.bottom() - 0.2 * measure.height;
            isOtherPart = isOtherPart || (k > i && headings.isPart(lines[k]));
            if (k < i) {
                ++side.above;
            } else if (k > i && !isOtherPart) {
                side.below.append(lines[k]);
            }
        }
        const auto& [left, right] = sides;
        if (!isAlone || left.above == 0 || right.above == 0 || left.below.isEmpty() ||
            right.below.isEmpty()) {
            continue;
        }
        const double step = left.below.first().place.top() - right.below.first().place.top();
        if (std::abs(step) < 0.4 * measure.height || PageRows::isTable(left.below, right.below, measure)) {
            return i;
        }
    }
    return 0;
}

} // namespace ovrin
