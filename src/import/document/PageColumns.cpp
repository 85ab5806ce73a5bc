#include "import/document/PageColumns.h"

#include "import/document/PageBands.h"
#include "import/document/PageRows.h"
#include "import/document/PageTiles.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace ovrin {

namespace {

/// Bands within columns within bands: deeper than this no page is made.
constexpr int deepest = 8;

/// One page's lines.
class Page
{
public:
    explicit Page(const QList<TextLine>& lines)
        : m_lines(lines)
        , m_measure(PageMeasure::of(lines))
        , m_headings(lines)
    {
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
        const PageTiles tiles = depth < deepest ? PageTiles::of(lines, m_measure) : PageTiles();
        if (tiles.sidebar) {
            return inColumns(lines, tiles.begin, tiles.end, *tiles.sidebar, depth);
        }
        if (!tiles.tiles.isEmpty()) {
            QList<TextLine> result = ordered(lines.first(tiles.begin), depth + 1);
            for (const QList<TextLine>& tile : tiles.tiles) {
                result += column(tile);
            }
            return result + ordered(lines.sliced(tiles.end), depth + 1);
        }
        const Band band = depth < deepest ? PageBands::best(lines, m_measure, m_headings, gutter) : Band();
        if (band.weight == 0) {
            return column(std::move(lines));
        }
        const qsizetype heading =
            depth < deepest ? PageBands::headingAcross(lines, band, m_measure, m_headings) : 0;
        if (heading > 0) {
            return ordered(lines.first(heading), depth + 1, band.middle()) +
                   ordered(lines.sliced(heading), depth + 1, band.middle());
        }
        return inColumns(lines, band.begin, band.end, band.middle(), depth);
    }

private:
    /// The lines from `begin` to before `end` in two columns on either side of `x`, the others as they come.
    QList<TextLine> inColumns(const QList<TextLine>& lines, qsizetype begin, qsizetype end, double x,
                              int depth) const
    {
        const QList<TextLine> band = lines.sliced(begin, end - begin);
        QList<TextLine> left;
        QList<TextLine> right;
        for (const TextLine& line : band) {
            (line.place.center().x() < x ? left : right).append(line);
        }
        QList<TextLine> result = ordered(lines.first(begin), depth + 1, x);
        if (PageRows::isTable(left, right, m_measure)) {
            result += PageRows::ofTable(band, m_measure);
        } else if (PageRows::isLabels(left)) {
            result += PageRows::sorted(band, m_measure);
        } else {
            result += ordered(left, depth + 1) + ordered(right, depth + 1);
        }
        return result + ordered(lines.sliced(end), depth + 1, x);
    }

    /// Lines above each other, as far as they are not the cells of one row.
    QList<TextLine> column(QList<TextLine> lines) const
    {
        if (const auto cells = PageRows::inCells(lines, m_measure)) {
            return *cells;
        }
        return widened(PageRows::asColumn(PageRows::withAmountsJoined(std::move(lines), m_measure)));
    }

    /// `column`, whose lines may reach as far as any on the page where nothing stands beside them and they
    /// end well before that.
    QList<TextLine> widened(QList<TextLine> column) const
    {
        constexpr double nearby = 3;
        constexpr double leastRoom = 10;
        if (column.isEmpty()) {
            return column;
        }
        const double own = column.first().columnRight;
        double top = 1;
        double bottom = 0;
        for (const TextLine& line : column) {
            top = std::min(top, line.place.top());
            bottom = std::max(bottom, line.place.bottom());
        }
        double right = own;
        for (const TextLine& line : m_lines) {
            if (line.place.left() > own && line.place.bottom() > top - nearby * m_measure.height &&
                line.place.top() < bottom + nearby * m_measure.height) {
                return column;
            }
            right = std::max(right, line.place.right());
        }
        for (TextLine& line : column) {
            line.columnRight = right - own > leastRoom * m_measure.letter ? right : own;
        }
        return column;
    }

    /// The first line in large type that stands below all that is above it, apart from it: what follows is
    /// about something else, whatever its columns. 0 where there is none.
    qsizetype furtherTitle(const QList<TextLine>& lines) const
    {
        constexpr double titleType = 1.5;
        constexpr qsizetype leastAbove = 4;
        // The large number of a step is none.
        constexpr qsizetype shortestTitle = 3;
        double bottom = 0;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QRectF& place = lines[i].place;
            if (i >= leastAbove && lines[i].text.size() >= shortestTitle &&
                place.height() > titleType * m_measure.height && i + 1 < lines.size() &&
                place.top() - bottom > 0.5 * m_measure.height &&
                lines[i - 1].place.height() < titleType * m_measure.height) {
                return i;
            }
            bottom = std::max(bottom, place.bottom());
        }
        return 0;
    }

    const QList<TextLine>& m_lines;
    PageMeasure m_measure;
    PageHeadings m_headings;
};

} // namespace

QList<TextLine> PageColumns::regrouped(const QList<TextLine>& lines)
{
    return PageRows::pageByPage(lines, [](const QList<TextLine>& own) { return Page(own).ordered(own); });
}

} // namespace ovrin
