#include "import/document/DrawnOrder.h"

#include "import/document/LineShape.h"
#include "import/document/PageMeasure.h"
#include "import/document/PageRows.h"

#include <algorithm>
#include <vector>

namespace ovrin {

namespace {

/// How far above or below, in heights of a line, a text still limits how far the column beside it may reach.
constexpr double nearby = 3;

bool isAbove(const QRectF& a, const QRectF& b, const PageMeasure& measure)
{
    return a.center().y() < b.top() && b.center().y() > a.bottom() &&
           std::min(a.right(), b.right()) - std::max(a.left(), b.left()) > measure.letter;
}

/// `lines` as they come, but each behind all that stands above it. What was held back goes on to its end
/// before the lines that waited for it.
QList<TextLine> downwards(const QList<TextLine>& lines, const PageMeasure& measure)
{
    constexpr int isTaken = -1;
    std::vector<int> above;
    for (const TextLine& line : lines) {
        above.push_back(
            static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const TextLine& other) {
                return isAbove(other.place, line.place, measure);
            })));
    }
    QList<TextLine> result;
    auto next = above.begin();
    while (result.size() < lines.size()) {
        if (next == above.end() || *next != 0) {
            next = std::find(above.begin(), above.end(), 0);
        }
        const TextLine& line = lines[next - above.begin()];
        result.append(line);
        *next++ = isTaken;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            above[static_cast<std::size_t>(i)] -= isAbove(line.place, lines[i].place, measure) ? 1 : 0;
        }
    }
    return result;
}

/// The first page's `lines` with the title in front, and what stands above it, where nothing stands beside
/// them: whenever they are drawn.
QList<TextLine> titleFirst(const QList<TextLine>& lines)
{
    constexpr double titleType = 1.25;
    QList<TextLine> sorted = lines;
    std::stable_sort(sorted.begin(), sorted.end(), [](const TextLine& a, const TextLine& b) {
        return a.place.center().y() < b.place.center().y();
    });
    qsizetype head = 0;
    for (qsizetype i = 0; i + 1 < sorted.size(); ++i) {
        const QRectF& place = sorted[i].place;
        const QRectF& next = sorted[i + 1].place;
        if (place.bottom() > next.center().y() || place.center().y() > next.top()) {
            break;
        }
        head = sorted[i].relativeHeight >= titleType ? i + 1 : head;
    }
    QList<TextLine> result = sorted.first(head);
    const double bottom = head > 0 ? result.last().place.center().y() : 0;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(result),
                 [&](const TextLine& line) { return line.place.center().y() > bottom; });
    return result;
}

/// Whether `next` stands below `line`, in a column that reaches from `left` to `right`.
bool goesOn(const QRectF& line, const QRectF& next, double left, double right, const PageMeasure& measure)
{
    return next.left() < right && next.right() > left && next.top() > line.top() - 0.5 * measure.height;
}

/// `column`, whose lines reach no further to the right than to what stands beside them. Where the widest of
/// them comes near to that, it shows how far they may.
QList<TextLine> narrowed(QList<TextLine> column, const QList<TextLine>& page, const PageMeasure& measure)
{
    constexpr double widestGutter = 10;
    double reach = 0;
    std::vector<double> limits;
    for (const TextLine& line : column) {
        double limit = line.columnRight;
        for (const TextLine& other : page) {
            const double below = other.place.top() - line.place.bottom();
            const double above = line.place.top() - other.place.bottom();
            if (other.place.left() > line.place.right() && std::max(below, above) < nearby * measure.height) {
                limit = std::min(limit, other.place.left() - measure.letter);
            }
        }
        reach = limit < line.columnRight ? std::max(reach, line.place.right()) : reach;
        limits.push_back(limit);
    }
    for (std::size_t i = 0; i < limits.size(); ++i) {
        TextLine& line = column[static_cast<qsizetype>(i)];
        const bool isNarrowed =
            limits[i] < line.columnRight && limits[i] - reach < widestGutter * measure.letter;
        line.columnRight = std::max(isNarrowed ? std::min(limits[i], reach) : limits[i], line.place.right());
    }
    return column;
}

/// Amounts put together with what stands right below them and has none, as in a grid of ingredients.
QList<TextLine> withAmountsAbove(const QList<TextLine>& lines, const PageMeasure& measure)
{
    QList<TextLine> result;
    for (const TextLine& line : lines) {
        const QRectF above = result.isEmpty() ? QRectF() : result.last().place;
        const double gap = line.place.top() - above.bottom();
        const bool isBelow = !above.isNull() && std::abs(gap) < 0.5 * measure.height &&
                             line.place.left() < above.right() && above.left() < line.place.right();
        if (isBelow && LineShape::isBareAmount(result.last().text) && line.text.front().isLetter() &&
            !LineShape::isProse(line.text)) {
            result.last().text += u' ' + line.text;
            result.last().place |= line.place;
        } else {
            result.append(line);
        }
    }
    return result;
}

QList<TextLine> ordered(QList<TextLine> lines)
{
    const PageMeasure measure = PageMeasure::of(lines);
    std::stable_sort(lines.begin(), lines.end(),
                     [](const TextLine& a, const TextLine& b) { return a.drawn < b.drawn; });
    lines = lines.first().page == 0 ? titleFirst(lines) : lines;
    lines = withAmountsAbove(PageRows::joinedCells(downwards(lines, measure), measure), measure);
    QList<TextLine> result;
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin + 1;
        double left = lines[begin].place.left();
        double right = lines[begin].place.right();
        while (end < lines.size() && goesOn(lines[end - 1].place, lines[end].place, left, right, measure)) {
            left = std::min(left, lines[end].place.left());
            right = std::max(right, lines[end].place.right());
            ++end;
        }
        result += narrowed(PageRows::asColumn(lines.sliced(begin, end - begin)), lines, measure);
        begin = end;
    }
    return result;
}

} // namespace

QList<TextLine> DrawnOrder::regrouped(const QList<TextLine>& lines)
{
    return PageRows::pageByPage(lines, ordered);
}

bool DrawnOrder::isKnown(const QList<TextLine>& lines)
{
    return std::all_of(lines.begin(), lines.end(), [](const TextLine& line) { return line.drawn >= 0; });
}

} // namespace ovrin
