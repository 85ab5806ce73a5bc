#pragma once

#include "import/document/TextLine.h"

#include <optional>
#include <vector>

namespace ovrin {

/// How the lines of one list or text follow each other on the page: what their places tell about where an
/// entry or a paragraph begins. Without places it estimates from the widths of letters.
class LineFlow
{
public:
    /// `lines` must outlive this.
    explicit LineFlow(const QList<TextLine>& lines);

    /// Whether the first word of line `i` would have had room on the line before: then that line was ended on
    /// purpose.
    bool hadRoom(qsizetype i) const;

    enum class Verdict { Begins, Continues, Unknown };

    /// Whether it goes by places.
    bool isPlaced() const { return m_letter > 0; }

    /// Whether line `i` stands below the one before, in the same column.
    bool followsDown(qsizetype i) const;

    /// How far line `i`, which follows down, stands below the one before, from line to line, in heights.
    double gap(qsizetype i) const;

    /// By indents and blank spaces, where the lines have a habit of them; the first line begins.
    Verdict verdict(qsizetype i) const { return m_verdicts[static_cast<std::size_t>(i)]; }

private:
    /// Which edge, or the middle, the lines of a column have in common.
    enum class Alignment { Left, Right, Centred };

    /// Smaller blank spaces than `rest` stand above the rests of entries, larger ones than `entry` above
    /// entries; what lies between says nothing.
    struct PartingGaps
    {
        double rest = 0;
        double entry = 0;
    };

    /// Lines that follow each other down one column.
    struct Run
    {
        /// Leftmost and rightmost, and the widest line's width, as parts of the page.
        double edge = 0;
        double reach = 0;
        double width = 0;
        /// How far the line is set in that is set in most, in letters.
        double deepest = 0;
    };

    /// The run that line `i` stands in.
    const Run& run(qsizetype i) const { return m_runs[static_cast<std::size_t>(i)]; }
    double indent(qsizetype i) const;
    Alignment commonAlignment() const;
    bool fits(qsizetype i, double columnRight) const;
    bool followsLongLine(qsizetype i) const;
    double limit(qsizetype i) const;
    bool areWrappedAtReach() const;
    std::optional<double> edgeOfRests() const;
    bool areMostlyRests() const;
    void measure();
    void judgeByHangingIndent();
    void judgeByFirstLineIndent();
    Verdict look(qsizetype i) const;
    std::optional<PartingGaps> partingGaps() const;
    void judgeByGaps();
    bool judgeByClearGaps(const std::optional<PartingGaps>& parting);

    const QList<TextLine>& m_lines;
    std::vector<Verdict> m_verdicts;
    std::vector<Run> m_runs;
    Alignment m_alignment = Alignment::Left;
    /// Lines reach no further than the widest of their run.
    bool m_fillsReach = false;
    /// Width of an average letter and height of a line, as parts of the page; 0 without places.
    double m_letter = 0;
    double m_height = 0;
    /// Of the widest line, by LineShape::estimatedWidth.
    double m_fullWidth = 0;
};

} // namespace ovrin
