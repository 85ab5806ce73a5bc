#include "import/document/PageColumns.h"

#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeSections.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
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

    /// `gutter` is one that the lines above or below have, so that fewer lines show that these have it too.
    QList<TextLine> ordered(QList<TextLine> lines, int depth = 0, std::optional<double> gutter = {}) const
    {
        std::stable_sort(lines.begin(), lines.end(),
                         [](const TextLine& a, const TextLine& b) { return a.place.top() < b.place.top(); });
        const qsizetype title = depth < deepest ? furtherTitle(lines) : 0;
        if (title > 0) {
            return ordered(lines.first(title), depth + 1) + ordered(lines.sliced(title), depth + 1);
        }
        const Band band = depth < deepest ? bestBand(lines, gutter) : Band();
        if (band.weight == 0) {
            lines = withAmountsJoined(inRows(std::move(lines)));
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
        const qsizetype heading = depth < deepest ? headingAcross(lines, band) : 0;
        if (heading > 0) {
            return ordered(lines.first(heading), depth + 1, band.middle()) +
                   ordered(lines.sliced(heading), depth + 1, band.middle());
        }
        QList<TextLine> left;
        QList<TextLine> right;
        for (qsizetype i = band.begin; i < band.end; ++i) {
            (lines[i].place.center().x() < band.middle() ? left : right).append(lines[i]);
        }
        QList<TextLine> result = ordered(lines.first(band.begin), depth + 1);
        if (isTable(left, right)) {
            result += rows(lines.sliced(band.begin, band.end - band.begin));
        } else if (isLabels(left)) {
            result += inRows(lines.sliced(band.begin, band.end - band.begin));
        } else {
            result += ordered(left, depth + 1) + ordered(right, depth + 1);
        }
        return result + ordered(lines.sliced(band.end), depth + 1);
    }

    /// Marks the lines that stand apart from the one before, besides those that begin a band or a column.
    void markBlocks(QList<TextLine>& lines) const
    {
        std::vector<double> gaps{0};
        for (qsizetype i = 1; i < lines.size(); ++i) {
            const double gap = lines[i].place.top() - lines[i - 1].place.bottom();
            if (gap > -0.5 * m_height && gap < 2 * m_height) {
                gaps.push_back(gap);
            }
        }
        const double wide = std::min(0.9 * m_height, std::max(0.45 * m_height, 3 * medianOf(gaps)));
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const double gap = i == 0 ? 0 : lines[i].place.top() - lines[i - 1].place.bottom();
            lines[i].startsBlock = lines[i].startsBlock || i == 0 || gap > wide || gap < -m_height;
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

    /// Two times, or a time and a number of portions, are no amount with its name.
    static bool isAmountAndName(const QString& a, const QString& b)
    {
        const bool amountFirst = LineShape::isBareAmount(a);
        return amountFirst != LineShape::isBareAmount(b) && !RecipeFacts::isFact(amountFirst ? b : a);
    }

    /// Lines in rows, those put together of which one is a mere amount and the other what it is an amount of.
    QList<TextLine> withAmountsJoined(const QList<TextLine>& lines) const
    {
        QList<TextLine> result;
        for (const TextLine& line : lines) {
            if (!result.isEmpty() && sameRow(result.last(), line) &&
                line.place.left() > result.last().place.right() &&
                isAmountAndName(result.last().text, line.text)) {
                result.last().text += u' ' + line.text;
                result.last().place |= line.place;
            } else {
                result.append(line);
            }
        }
        return result;
    }

    /// The rows of a table as one line each. Not one of them is the rest of another, so that each has room.
    QList<TextLine> rows(QList<TextLine> lines) const
    {
        lines = withAmountsJoined(inRows(std::move(lines)));
        for (qsizetype i = 0; i < lines.size(); ++i) {
            lines[i].startsBlock = i == 0;
            lines[i].columnRight = 2;
        }
        return lines;
    }

    /// The first line in large type that stands below all that is above it, apart from it: what follows is
    /// about something else, whatever its columns. 0 where there is none.
    qsizetype furtherTitle(const QList<TextLine>& lines) const
    {
        constexpr double titleType = 1.6;
        constexpr qsizetype leastAbove = 4;
        double bottom = 0;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QRectF& place = lines[i].place;
            if (i >= leastAbove && place.height() > titleType * m_height && i + 1 < lines.size() &&
                place.top() - bottom > 0.5 * m_height && lines[i - 1].place.height() < titleType * m_height) {
                return i;
            }
            bottom = std::max(bottom, place.bottom());
        }
        return 0;
    }

    /// The first heading inside the band that has nothing beside it and both columns going on at one height
    /// below it: what stands below it, in either column, belongs to it. 0 where there is none.
    qsizetype headingAcross(const QList<TextLine>& lines, const Band& band) const
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
                isAlone = k == i || other.bottom() <= place.top() + 0.2 * m_height ||
                          other.top() >= place.bottom() - 0.2 * m_height;
                if (k < i) {
                    ++side.above;
                } else if (k > i && side.below++ == 0) {
                    side.top = other.top();
                }
            }
            if (isAlone && sides[0].above > 0 && sides[1].above > 0 && sides[0].below > 0 &&
                sides[1].below > 0 && std::abs(sides[0].top - sides[1].top) < 0.4 * m_height) {
                return i;
            }
        }
        return 0;
    }

    /// A column of nothing but labels and headings, each beside what it is for.
    static bool isLabels(const QList<TextLine>& lines)
    {
        const auto labels = std::count_if(lines.begin(), lines.end(), [](const TextLine& line) {
            return RecipeFacts::isBareLabel(line.text) || headingOf(line.text).kind != HeadingKind::None;
        });
        return labels * 5 >= lines.size() * 4;
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
    Band bestBand(const QList<TextLine>& lines, std::optional<double> gutter) const
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
                const Band band = trimmed(lines, x, begin, end, isKnown ? 1 : leastLinesPerSide);
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
    Band trimmed(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end,
                 qsizetype leastRows) const
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
        // The last, short line of a text that spans both is not theirs either.
        if (begin > 0 && begin + 1 < end && crosses(lines[begin - 1], x) &&
            lines[begin].place.bottom() <= top &&
            lines[begin].place.top() - lines[begin - 1].place.bottom() < 0.6 * m_height &&
            std::abs(lines[begin].place.left() - lines[begin - 1].place.left()) < m_letter) {
            ++begin;
        }
        end = withoutFoot(lines, x, begin, end);
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
        if (band.weight < leastRows || band.right - band.left < leastGutter * m_letter) {
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

    /// The end of the band without a heading that stands below both columns and above more text that spans
    /// them.
    qsizetype withoutFoot(const QList<TextLine>& lines, double x, qsizetype begin, qsizetype end) const
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
            const bool apart = place.top() - lines[i - 1].place.bottom() > 0.5 * m_height;
            const bool isLarge = place.height() > 1.12 * m_height;
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
