#include "import/document/PageColumns.h"

#include "import/document/LineShape.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace ovrin {

namespace {

/// A page with more lines than this is no page of a book; it keeps the order it has.
constexpr qsizetype mostLines = 600;
constexpr qsizetype leastLinesPerSide = 3;
/// Bands within columns within bands: deeper than this no page is made.
constexpr int deepest = 8;
/// The least blank space between two columns, in letters.
constexpr double leastGutter = 1.6;
/// Places that are tried for a gutter, from the page's left edge to its right one.
constexpr int candidates = 200;

bool isPlaced(const TextLine& line)
{
    const QRectF& place = line.place;
    return std::isfinite(place.left()) && std::isfinite(place.top()) && std::isfinite(place.width()) &&
           std::isfinite(place.height()) && place.width() > 0 && place.height() > 0;
}

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

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

/// One page's lines.
class Page
{
public:
    explicit Page(const QList<TextLine>& lines)
    {
        std::vector<double> letters;
        std::vector<double> heights;
        for (const TextLine& line : lines) {
            letters.push_back(line.place.width() / std::max(1.0, LineShape::estimatedWidth(line.text)));
            heights.push_back(line.place.height());
        }
        m_letter = medianOf(letters);
        m_height = medianOf(heights);
    }

    QList<TextLine> ordered(QList<TextLine> lines, int depth = 0) const
    {
        std::stable_sort(lines.begin(), lines.end(),
                         [](const TextLine& a, const TextLine& b) { return a.place.top() < b.place.top(); });
        const Band band = depth < deepest ? bestBand(lines) : Band();
        if (band.weight == 0) {
            lines = inRows(std::move(lines));
            double right = 0;
            for (const TextLine& line : lines) {
                right = std::max(right, line.place.right());
            }
            for (qsizetype i = 0; i < lines.size(); ++i) {
                lines[i].startsBlock = i == 0;
                lines[i].columnRight = right;
            }
            return lines;
        }
        QList<TextLine> left;
        QList<TextLine> right;
        for (qsizetype i = band.begin; i < band.end; ++i) {
            (lines[i].place.center().x() < band.middle() ? left : right).append(lines[i]);
        }
        QList<TextLine> result = ordered(lines.first(band.begin), depth + 1);
        if (isTable(left, right)) {
            result += rows(lines.sliced(band.begin, band.end - band.begin));
        } else {
            result += ordered(left, depth + 1) + ordered(right, depth + 1);
        }
        return result + ordered(lines.sliced(band.end), depth + 1);
    }

    /// Marks the lines that stand apart from the one before, besides those that begin a band or a column.
    void markBlocks(QList<TextLine>& lines) const
    {
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const double gap = i == 0 ? 0 : lines[i].place.top() - lines[i - 1].place.bottom();
            lines[i].startsBlock = lines[i].startsBlock || i == 0 || gap > 0.9 * m_height || gap < -m_height;
        }
    }

private:
    bool sameRow(const TextLine& a, const TextLine& b) const
    {
        return std::abs(a.place.bottom() - b.place.bottom()) < 0.4 * m_height;
    }

    /// Lines sorted by their tops, those of one row from left to right.
    QList<TextLine> inRows(QList<TextLine> lines) const
    {
        for (qsizetype begin = 0; begin < lines.size();) {
            qsizetype end = begin + 1;
            while (end < lines.size() && sameRow(lines[begin], lines[end])) {
                ++end;
            }
            std::stable_sort(
                lines.begin() + begin, lines.begin() + end,
                [](const TextLine& a, const TextLine& b) { return a.place.left() < b.place.left(); });
            begin = end;
        }
        return lines;
    }

    /// As `inRows`, the cells of a row put together.
    QList<TextLine> rows(QList<TextLine> lines) const
    {
        QList<TextLine> result;
        for (TextLine& line : inRows(std::move(lines))) {
            if (!result.isEmpty() && sameRow(result.last(), line) &&
                line.place.left() > result.last().place.right()) {
                result.last().text += u' ' + line.text;
                result.last().place |= line.place;
            } else {
                result.append(line);
            }
        }
        return result;
    }

    /// Two columns of which one holds amounts, and nothing else, for the other's words.
    bool isTable(const QList<TextLine>& left, const QList<TextLine>& right) const
    {
        const auto amounts = [](const QList<TextLine>& lines) {
            return std::count_if(lines.begin(), lines.end(),
                                 [](const TextLine& line) { return LineShape::isBareAmount(line.text); }) *
                       5 >=
                   lines.size() * 4;
        };
        qsizetype pairs = 0;
        for (const TextLine& cell : right) {
            pairs += std::any_of(left.begin(), left.end(),
                                 [&](const TextLine& other) { return sameRow(cell, other); });
        }
        return amounts(left) != amounts(right) && pairs * 5 >= std::min(left.size(), right.size()) * 4;
    }

    /// The band whose lesser column holds most rows; of equals the longest, then the one with the widest
    /// gutter.
    Band bestBand(const QList<TextLine>& lines) const
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
                const Band band = trimmed(lines, x, begin, end);
                if (band.rank() > best.rank()) {
                    best = band;
                }
                begin = end;
            }
        }
        return best;
    }

    static bool crosses(const TextLine& line, double x)
    {
        return line.place.left() <= x && line.place.right() >= x;
    }

    /// The band around `x` without the lines at its head that have nothing beside them; weight 0 where it is
    /// no band of columns.
    Band trimmed(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end) const
    {
        const auto isLeft = [&](qsizetype i) { return lines[i].place.right() < x; };
        const double leftTop = firstTop(lines, begin, end, isLeft);
        const double rightTop = firstTop(lines, begin, end, [&](qsizetype i) { return !isLeft(i); });
        // What stands alone above both columns and apart from them is not theirs.
        const double top = std::max(leftTop, rightTop);
        for (qsizetype i = begin; i + 1 < end && lines[i].place.bottom() <= top; ++i) {
            if (lines[i + 1].place.top() - lines[i].place.bottom() > 0.9 * m_height) {
                begin = i + 1;
            }
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
        if (band.weight < leastLinesPerSide || band.right - band.left < leastGutter * m_letter) {
            return {};
        }
        // Lines one above the other are no columns, however far they are set in.
        for (qsizetype i = begin; i < end; ++i) {
            const double other = isLeft(i) ? rightTop : leftTop;
            const double otherBottom = isLeft(i) ? rightBottom : leftBottom;
            beside += lines[i].place.bottom() > other && lines[i].place.top() < otherBottom ? 1 : 0;
        }
        return beside >= 4 ? band : Band();
    }

    template<typename Is>
    static double firstTop(const QList<TextLine>& lines, qsizetype begin, qsizetype end, Is is)
    {
        for (qsizetype i = begin; i < end; ++i) {
            if (is(i)) {
                return lines[i].place.top();
            }
        }
        return 0;
    }

    double m_letter;
    double m_height;
};

} // namespace

QList<TextLine> PageColumns::regrouped(const QList<TextLine>& lines)
{
    QList<TextLine> result;
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin;
        while (end < lines.size() && lines[end].page == lines[begin].page) {
            ++end;
        }
        QList<TextLine> own = lines.sliced(begin, end - begin);
        if (own.size() <= mostLines && std::all_of(own.begin(), own.end(), isPlaced)) {
            const Page page(own);
            own = page.ordered(own);
            page.markBlocks(own);
        }
        result += own;
        begin = end;
    }
    return result;
}

} // namespace ovrin
