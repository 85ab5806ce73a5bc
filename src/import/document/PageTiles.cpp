#include "import/document/PageTiles.h"

#include "import/document/LineShape.h"
#include "import/document/PageRows.h"

#include <cmath>
#include <optional>
#include <utility>

namespace ovrin {

namespace {

/// A number may stand above the middle of its text: how far the text may then reach to its left, in letters.
constexpr double widestOverhang = 12;

/// Indexes of the lines with the numbers of one row, from left to right.
using Row = std::vector<qsizetype>;

/// The number in front of each line, where there is one.
using Numbers = std::vector<std::optional<LineShape::Numbered>>;

Numbers numbersOf(const QList<TextLine>& lines)
{
    Numbers numbers;
    for (const TextLine& line : lines) {
        numbers.push_back(LineShape::counted(line.text));
    }
    return numbers;
}

bool crosses(const TextLine& line, double x)
{
    return line.place.left() < x && line.place.right() > x;
}

/// The rows of numbers from the one on that line `begin` opens, each from left to right. Numbers that stand
/// elsewhere than below the first row's are none of theirs.
std::vector<Row> rowsFrom(const QList<TextLine>& lines, const Numbers& numbers, qsizetype begin,
                          const PageMeasure& measure)
{
    const auto isSameRow = [&](qsizetype a, qsizetype b) {
        return std::abs(lines[b].place.top() - lines[a].place.top()) <
               0.5 * std::max(measure.height, lines[a].place.height());
    };
    std::vector<Row> rows(1);
    const double left = lines[begin].place.left();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!numbers[static_cast<std::size_t>(i)]) {
            continue;
        }
        if (isSameRow(begin, i)) {
            if (lines[i].place.left() >= left) {
                rows.front().push_back(i);
            }
            continue;
        }
        const bool standsInColumn =
            std::any_of(rows.front().begin(), rows.front().end(), [&](qsizetype first) {
                return std::abs(lines[i].place.left() - lines[first].place.left()) < 3 * measure.letter;
            });
        if (i < begin || !standsInColumn) {
            continue;
        }
        if (rows.size() == 1 || !isSameRow(rows.back().front(), i)) {
            rows.emplace_back();
        }
        rows.back().push_back(i);
    }
    for (Row& row : rows) {
        std::sort(row.begin(), row.end(),
                  [&](qsizetype a, qsizetype b) { return lines[a].place.left() < lines[b].place.left(); });
    }
    return rows;
}

/// How many of the rows count on from each other.
std::size_t countingRows(const std::vector<Row>& rows, const QList<TextLine>& lines, const Numbers& numbers)
{
    const auto numberOf = [&](qsizetype i) { return numbers[static_cast<std::size_t>(i)]->number; };
    const bool isBare = LineShape::isBareNumber(lines[rows.front().front()].text);
    int expected = numberOf(rows.front().front());
    for (std::size_t kept = 0; kept < rows.size(); ++kept) {
        const Row& row = rows[kept];
        const bool counts =
            row.size() <= rows.front().size() && std::all_of(row.begin(), row.end(), [&](qsizetype i) {
                return LineShape::isBareNumber(lines[i].text) == isBare && numberOf(i) == expected++;
            });
        if (!counts) {
            return kept;
        }
    }
    return rows.size();
}

/// The most rows of numbers that count up along them: from 1, or overleaf from where they had come to.
std::vector<Row> numberRows(const QList<TextLine>& lines, const PageMeasure& measure)
{
    constexpr int mostStarts = 24;
    const Numbers numbers = numbersOf(lines);
    std::vector<Row> best;
    qsizetype most = 1;
    int starts = 0;
    for (qsizetype begin = 0; begin < lines.size() && starts < mostStarts; ++begin) {
        const auto& number = numbers[static_cast<std::size_t>(begin)];
        if (!number || (lines[begin].page == 0 && number->number != 1)) {
            continue;
        }
        ++starts;
        std::vector<Row> rows = rowsFrom(lines, numbers, begin, measure);
        rows.resize(countingRows(rows, lines, numbers));
        qsizetype tiles = 0;
        for (const Row& row : rows) {
            tiles += static_cast<qsizetype>(row.size());
        }
        if (tiles > most && rows.front().size() > 1) {
            most = tiles;
            best = std::move(rows);
        }
    }
    return best;
}

/// Left of all tiles of the first row but the first: right before where the lines around each number begin.
std::vector<double> guttersOf(const QList<TextLine>& lines, qsizetype begin, const std::vector<Row>& rows,
                              const PageMeasure& measure)
{
    constexpr double linesBelow = 3;
    const double bottom = lines[rows.back().back()].place.top() + linesBelow * measure.height;
    std::vector<double> gutters;
    const Row& first = rows.front();
    for (std::size_t k = 1; k < first.size(); ++k) {
        const double number = lines[first[k]].place.left();
        const double least = std::max(number - widestOverhang * measure.letter,
                                      lines[first[k - 1]].place.left() + measure.letter);
        double left = number;
        for (qsizetype i = begin; i < lines.size() && lines[i].place.top() < bottom; ++i) {
            const double other = lines[i].place.left();
            left = other > least ? std::min(left, other) : left;
        }
        gutters.push_back(left - 0.5 * measure.letter);
    }
    return gutters;
}

double topOf(const QList<TextLine>& lines, const Row& row)
{
    double top = 1;
    for (const qsizetype i : row) {
        top = std::min(top, lines[i].place.top());
    }
    return top;
}

/// The range of lines around the tiles in which all stand to one side of the text to the left of them.
PageTiles withSidebar(const QList<TextLine>& lines, const PageTiles& tiles, double sidebarRight,
                      double tilesLeft)
{
    const double x = (sidebarRight + tilesLeft) / 2;
    PageTiles result{tiles.begin, tiles.end, {}, x};
    while (result.begin > 0 && !crosses(lines[result.begin - 1], x)) {
        --result.begin;
    }
    while (result.end < lines.size() && !crosses(lines[result.end], x)) {
        ++result.end;
    }
    return result;
}

/// Whether a tile holds directions, rather than the line of a list with others below it.
bool isStep(const QList<TextLine>& tile)
{
    QString text;
    qsizetype amounts = 0;
    for (const TextLine& line : tile) {
        const auto number = LineShape::counted(line.text);
        amounts += !text.isEmpty() && LineShape::startsWithAmount(line.text) ? 1 : 0;
        text += (text.isEmpty() && number ? number->rest : line.text) + u' ';
    }
    text = text.trimmed();
    return amounts * 3 <= tile.size() && !LineShape::startsWithMeasure(tile.first().text) &&
           (LineShape::isProse(text) || LineShape::endsSentence(text) || LineShape::startsWithVerb(text));
}

/// Whether most tiles hold directions.
bool areSteps(const QList<QList<TextLine>>& tiles)
{
    qsizetype steps = 0;
    qsizetype filled = 0;
    for (const QList<TextLine>& tile : tiles) {
        filled += tile.isEmpty() ? 0 : 1;
        steps += !tile.isEmpty() && isStep(tile) ? 1 : 0;
    }
    return steps * 3 >= filled * 2;
}

/// Puts a full stop behind bare numbers, so that nobody takes them for amounts.
void markNumbers(QList<QList<TextLine>>& tiles)
{
    for (QList<TextLine>& tile : tiles) {
        if (!tile.isEmpty() && LineShape::isBareNumber(tile.first().text)) {
            const auto number = LineShape::counted(tile.first().text).value_or(LineShape::Numbered());
            tile.first().text = QStringLiteral("%1. %2").arg(number.number).arg(number.rest).trimmed();
        }
    }
}

} // namespace

PageTiles PageTiles::of(const QList<TextLine>& lines, const PageMeasure& measure)
{
    const std::vector<Row> rows = numberRows(lines, measure);
    if (rows.empty()) {
        return {};
    }
    PageTiles result;
    const double top = topOf(lines, rows.front());
    result.begin = *std::min_element(rows.front().begin(), rows.front().end());
    while (result.begin > 0 && lines[result.begin - 1].place.center().y() > top) {
        --result.begin;
    }
    const qsizetype lastNumber = *std::max_element(rows.back().begin(), rows.back().end());
    const std::vector<double> gutters = guttersOf(lines, result.begin, rows, measure);
    const auto spans = [&](const TextLine& line) {
        return std::any_of(gutters.begin(), gutters.end(), [&](double x) { return crosses(line, x); });
    };
    // What spans them below the last row, or stands apart from it, is no part of them.
    constexpr double widestGap = 2.5;
    double bottom = lines[lastNumber].place.bottom();
    result.end = lastNumber + 1;
    while (result.end < lines.size() && !spans(lines[result.end]) &&
           lines[result.end].place.top() - bottom < widestGap * measure.height) {
        bottom = std::max(bottom, lines[result.end].place.bottom());
        ++result.end;
    }
    const auto columns = static_cast<qsizetype>(gutters.size()) + 1;
    result.tiles.resize(static_cast<qsizetype>(rows.size()) * columns);
    const double numbersLeft = lines[rows.front().front()].place.left();
    double sidebarRight = 0;
    double tilesLeft = numbersLeft;
    std::size_t row = 0;
    for (qsizetype i = result.begin; i < result.end; ++i) {
        const QRectF& place = lines[i].place;
        if (place.right() < numbersLeft - measure.letter) {
            sidebarRight = std::max(sidebarRight, place.right());
            continue;
        }
        if (spans(lines[i]) || place.left() < numbersLeft - widestOverhang * measure.letter) {
            return {};
        }
        tilesLeft = std::min(tilesLeft, place.left());
        while (row + 1 < rows.size() && place.center().y() > topOf(lines, rows[row + 1])) {
            ++row;
        }
        const auto column =
            std::count_if(gutters.begin(), gutters.end(), [&](double x) { return place.center().x() > x; });
        result.tiles[static_cast<qsizetype>(row) * columns + column].append(lines[i]);
    }
    for (QList<TextLine>& tile : result.tiles) {
        tile = PageRows::withAmountsJoined(std::move(tile), measure);
    }
    if (!areSteps(result.tiles)) {
        return {};
    }
    if (sidebarRight == 0) {
        markNumbers(result.tiles);
        return result;
    }
    return sidebarRight < tilesLeft ? withSidebar(lines, result, sidebarRight, tilesLeft) : PageTiles();
}

} // namespace ovrin
