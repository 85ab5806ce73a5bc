#include "import/document/PageRows.h"

#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeSections.h"

#include <cmath>

namespace ovrin {

namespace {

/// A page with more lines than this is no page of a book; it keeps the order it has.
constexpr qsizetype mostLines = 600;

bool isPlaced(const TextLine& line)
{
    const QRectF& place = line.place;
    return std::isfinite(place.left()) && std::isfinite(place.top()) && std::isfinite(place.width()) &&
           std::isfinite(place.height()) && place.width() > 0 && place.height() > 0;
}

/// Marks the lines that stand apart from the one before, besides those that begin a band or a column.
void markBlocks(QList<TextLine>& lines)
{
    const double height = PageMeasure::of(lines).height;
    std::vector<double> gaps{0};
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const double gap = lines[i].place.top() - lines[i - 1].place.bottom();
        if (gap > -0.5 * height && gap < 2 * height) {
            gaps.push_back(gap);
        }
    }
    const double wide = std::min(0.9 * height, std::max(0.45 * height, 3 * medianOf(gaps)));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const double gap = i == 0 ? 0 : lines[i].place.top() - lines[i - 1].place.bottom();
        lines[i].startsBlock = lines[i].startsBlock || i == 0 || gap > wide || gap < -height;
    }
}

/// Two times, or a time and a number of portions, are no amount with its name.
bool isAmountAndName(const QString& a, const QString& b)
{
    const bool amountFirst = LineShape::isBareAmount(a);
    const QString& name = amountFirst ? b : a;
    return amountFirst != LineShape::isBareAmount(b) && !RecipeFacts::isFact(name) &&
           headingOf(name).kind == HeadingKind::None;
}

} // namespace

QList<TextLine> PageRows::pageByPage(const QList<TextLine>& lines,
                                     const std::function<QList<TextLine>(const QList<TextLine>&)>& ordered)
{
    QList<TextLine> result;
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin;
        while (end < lines.size() && lines[end].page == lines[begin].page) {
            ++end;
        }
        QList<TextLine> own = lines.sliced(begin, end - begin);
        if (own.size() <= mostLines && std::all_of(own.begin(), own.end(), isPlaced)) {
            own = ordered(own);
            markBlocks(own);
        }
        result += own;
        begin = end;
    }
    return result;
}

QList<TextLine> PageRows::sorted(QList<TextLine> lines, const PageMeasure& measure)
{
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin + 1;
        while (end < lines.size() && measure.isSameRow(lines[begin], lines[end])) {
            ++end;
        }
        std::stable_sort(
            lines.begin() + begin, lines.begin() + end,
            [](const TextLine& a, const TextLine& b) { return a.place.left() < b.place.left(); });
        begin = end;
    }
    return lines;
}

QList<TextLine> PageRows::withAmountsJoined(QList<TextLine> lines, const PageMeasure& measure)
{
    return joinedCells(sorted(std::move(lines), measure), measure);
}

QList<TextLine> PageRows::joinedCells(const QList<TextLine>& lines, const PageMeasure& measure)
{
    QList<TextLine> result;
    for (const TextLine& line : lines) {
        if (!result.isEmpty() && measure.isSameRow(result.last(), line) &&
            // An amount that is too long for its column reaches into the next one.
            line.place.left() > result.last().place.center().x() &&
            line.place.right() > result.last().place.right() &&
            isAmountAndName(result.last().text, line.text)) {
            TextLine& cell = result.last();
            // A tall number does not make the type of its text larger.
            cell.relativeHeight =
                line.text.size() > cell.text.size() ? line.relativeHeight : cell.relativeHeight;
            cell.text += u' ' + line.text;
            cell.place |= line.place;
        } else {
            result.append(line);
        }
    }
    return result;
}

QList<TextLine> PageRows::asColumn(QList<TextLine> lines)
{
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

QList<TextLine> PageRows::ofTable(QList<TextLine> lines, const PageMeasure& measure)
{
    lines = withAmountsJoined(std::move(lines), measure);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        lines[i].startsBlock = i == 0;
        lines[i].columnRight = 2;
    }
    return lines;
}

std::optional<QList<TextLine>> PageRows::inCells(const QList<TextLine>& lines, const PageMeasure& measure)
{
    constexpr qsizetype leastColumns = 3;
    qsizetype widest = 0;
    for (const TextLine& line : lines) {
        widest = std::max(widest, static_cast<qsizetype>(
                                      std::count_if(lines.begin(), lines.end(), [&](const TextLine& other) {
                                          return measure.isSameRow(line, other);
                                      })));
    }
    if (widest < leastColumns) {
        return std::nullopt;
    }
    QList<QList<TextLine>> cells;
    bool areWrapped = false;
    for (const TextLine& line : sorted(lines, measure)) {
        const auto above = std::find_if(cells.begin(), cells.end(), [&](const QList<TextLine>& cell) {
            const QRectF& last = cell.last().place;
            const double gap = line.place.top() - last.bottom();
            return gap > -0.3 * measure.height && gap < 0.45 * measure.height &&
                   (std::abs(last.left() - line.place.left()) < measure.letter ||
                    std::abs(last.center().x() - line.place.center().x()) < measure.letter);
        });
        if (above == cells.end()) {
            cells.append({line});
        } else if (!line.text.front().isLower() && line.text.front() != u'(') {
            // Lines above each other are entries, unless they are the rest of the one before.
            return std::nullopt;
        } else {
            above->append(line);
            areWrapped = true;
        }
    }
    if (!areWrapped) {
        return std::nullopt;
    }
    const auto middle = [](const QList<TextLine>& cell) {
        return (cell.first().place.top() + cell.last().place.bottom()) / 2;
    };
    std::stable_sort(cells.begin(), cells.end(),
                     [&](const auto& a, const auto& b) { return middle(a) < middle(b); });
    QList<TextLine> result;
    for (qsizetype begin = 0; begin < cells.size();) {
        qsizetype end = begin + 1;
        while (end < cells.size() && middle(cells[end]) - middle(cells[begin]) < 0.7 * measure.height) {
            ++end;
        }
        std::stable_sort(cells.begin() + begin, cells.begin() + end, [](const auto& a, const auto& b) {
            return a.first().place.left() < b.first().place.left();
        });
        for (; begin < end; ++begin) {
            result += asColumn(cells[begin]);
        }
    }
    return result;
}

bool PageRows::isTable(const QList<TextLine>& left, const QList<TextLine>& right, const PageMeasure& measure)
{
    const auto isCell = [](const TextLine& line) {
        return headingOf(line.text).kind == HeadingKind::None && !RecipeFacts::isFact(line.text);
    };
    const auto leftCells = std::count_if(left.begin(), left.end(), isCell);
    const auto rightCells = std::count_if(right.begin(), right.end(), isCell);
    const auto isAmounts = [](const QList<TextLine>& lines, qsizetype cells) {
        const auto amounts = std::count_if(lines.begin(), lines.end(), [](const TextLine& line) {
            return LineShape::isBareAmount(line.text);
        });
        return cells > 0 && amounts * 5 >= cells * 4;
    };
    if (isAmounts(left, leftCells) == isAmounts(right, rightCells)) {
        return false;
    }
    qsizetype pairs = 0;
    for (const TextLine& cell : right) {
        pairs += std::any_of(left.begin(), left.end(), [&](const TextLine& other) {
            return measure.isSameRow(cell, other) && isCell(other);
        });
    }
    return pairs * 5 >= std::min(leftCells, rightCells) * 4;
}

bool PageRows::isLabels(const QList<TextLine>& lines)
{
    const auto labels = std::count_if(lines.begin(), lines.end(), [](const TextLine& line) {
        return RecipeFacts::isBareLabel(line.text) || headingOf(line.text).kind != HeadingKind::None;
    });
    return labels * 5 >= lines.size() * 4;
}

} // namespace ovrin
