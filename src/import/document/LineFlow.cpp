#include "import/document/LineFlow.h"

#include "import/document/LineShape.h"
#include "import/document/PageMeasure.h"

#include <algorithm>
#include <cmath>

namespace ovrin {

namespace {

/// Left edges closer than this are one edge, in letters.
constexpr double sameEdge = 0.7;
/// Blank spaces that differ by less than this are one size, in heights of a line.
constexpr double sameGap = 0.13;

/// Up to where blank spaces are those between the lines of one entry: to the middle of the first step in
/// their sizes that is wider than those by which a browser rounds them.
double widestTight(std::vector<double> gaps)
{
    constexpr double leastStep = 0.09;
    std::sort(gaps.begin(), gaps.end());
    for (std::size_t k = 1; k < gaps.size(); ++k) {
        const double step = gaps[k] - gaps[k - 1];
        if (step > leastStep) {
            return std::min(gaps[k] - 0.5 * step, gaps.front() + sameGap);
        }
    }
    return gaps.front() + sameGap;
}

bool isMost(qsizetype some, qsizetype all)
{
    return all > 0 && some * 5 >= all * 4;
}

} // namespace

LineFlow::LineFlow(const QList<TextLine>& lines)
    : m_lines(lines)
    , m_verdicts(static_cast<std::size_t>(lines.size()), Verdict::Unknown)
    , m_runs(static_cast<std::size_t>(lines.size()))
{
    for (const TextLine& line : lines) {
        m_fullWidth = std::max(m_fullWidth, LineShape::estimatedWidth(line.text));
    }
    const bool placed = !lines.isEmpty() && std::all_of(lines.begin(), lines.end(), [](const TextLine& line) {
        return line.columnRight > 0;
    });
    if (placed) {
        measure();
        // Each is surer than the one before, and has the last word where it has one.
        if (m_alignment == Alignment::Left) {
            judgeByFirstLineIndent();
            judgeByHangingIndent();
        }
        judgeByGaps();
    }
    if (!m_verdicts.empty()) {
        m_verdicts.front() = Verdict::Begins;
    }
}

bool LineFlow::hadRoom(qsizetype i) const
{
    const TextLine& line = m_lines[i];
    const TextLine& previous = m_lines[i - 1];
    const QString firstWord = line.text.section(u' ', 0, 0);
    if (isPlaced()) {
        return fits(i, limit(i - 1));
    }
    // The widths are estimates: a line counts as ended early only where the word would have fitted well.
    constexpr double slack = 0.94;
    return LineShape::estimatedWidth(previous.text + u' ' + firstWord) < slack * m_fullWidth;
}

/// Whether the first word of line `i` would fit on the line before, if that may reach to `columnRight`.
bool LineFlow::fits(qsizetype i, double columnRight) const
{
    const TextLine& line = m_lines[i];
    const QString firstWord = line.text.section(u' ', 0, 0);
    const double word = line.place.width() * LineShape::estimatedWidth(firstWord + u' ') /
                        std::max(1.0, LineShape::estimatedWidth(line.text));
    const QRectF& previous = m_lines[i - 1].place;
    return m_alignment == Alignment::Left ? previous.right() + word < columnRight
                                          : previous.width() + word < run(i - 1).width;
}

/// Whether line `i` may be the rest of the one before: that fills the column, or at least all that the list
/// at hand uses of it.
bool LineFlow::followsLongLine(qsizetype i) const
{
    return !fits(i, std::min(m_lines[i - 1].columnRight, run(i - 1).reach));
}

/// How far line `i` is set in, in letters from its run's edge.
double LineFlow::indent(qsizetype i) const
{
    return (m_lines[i].place.left() - run(i).edge) / m_letter;
}

/// How far to the right line `i` may reach.
double LineFlow::limit(qsizetype i) const
{
    const double column = m_lines[i].columnRight;
    return m_fillsReach ? std::min(column, run(i).reach) : column;
}

/// Whether the lines are wrapped where the widest of them ends, though nothing stands beside them there: so
/// that those that look like rests mostly follow lines that come near to it.
bool LineFlow::areWrappedAtReach() const
{
    constexpr qsizetype leastRests = 3;
    const bool isTable = m_lines.first().columnRight > 1;
    if (isTable) {
        return false;
    }
    qsizetype behindFull = 0;
    qsizetype behindShort = 0;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        const QString& text = m_lines[i].text;
        if (followsDown(i) && (text.front().isLower() || text.front() == u'(')) {
            ++(followsLongLine(i) ? behindFull : behindShort);
        }
    }
    return behindFull >= leastRests && behindFull > 2 * behindShort;
}

/// Whether line `i` stands below the one before, in the same column.
bool LineFlow::followsDown(qsizetype i) const
{
    if (i == 0) {
        return false;
    }
    const QRectF& place = m_lines[i].place;
    const QRectF& previous = m_lines[i - 1].place;
    return m_lines[i].page == m_lines[i - 1].page && place.top() > previous.top() &&
           place.left() < previous.right() && place.right() > previous.left();
}

void LineFlow::measure()
{
    const PageMeasure measure = PageMeasure::of(m_lines);
    m_letter = measure.letter;
    m_height = measure.height;
    for (qsizetype begin = 0; begin < m_lines.size();) {
        Run run;
        run.edge = m_lines[begin].place.left();
        qsizetype end = begin + 1;
        for (; end < m_lines.size() && followsDown(end); ++end) {
            run.edge = std::min(run.edge, m_lines[end].place.left());
        }
        // A single word may be wider than its column.
        const auto isText = [](const TextLine& line) { return line.text.contains(u' '); };
        const bool hasText = std::any_of(m_lines.begin() + begin, m_lines.begin() + end, isText);
        for (qsizetype i = begin; i < end; ++i) {
            const QRectF& place = m_lines[i].place;
            if (!hasText || isText(m_lines[i])) {
                run.reach = std::max(run.reach, place.right());
                run.width = std::max(run.width, place.width());
            }
            run.deepest = std::max(run.deepest, (place.left() - run.edge) / m_letter);
        }
        for (; begin < end; ++begin) {
            m_runs[static_cast<std::size_t>(begin)] = run;
        }
    }
    m_alignment = commonAlignment();
    m_fillsReach = areWrappedAtReach();
}

LineFlow::Alignment LineFlow::commonAlignment() const
{
    constexpr qsizetype leastLines = 4;
    qsizetype left = 0;
    qsizetype right = 0;
    qsizetype centred = 0;
    qsizetype lines = 0;
    const double same = sameEdge * m_letter;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (followsDown(i)) {
            const QRectF& a = m_lines[i - 1].place;
            const QRectF& b = m_lines[i].place;
            ++lines;
            left += std::abs(a.left() - b.left()) < same ? 1 : 0;
            right += std::abs(a.right() - b.right()) < same ? 1 : 0;
            centred += std::abs(a.center().x() - b.center().x()) < same ? 1 : 0;
        }
    }
    if (lines < leastLines || left * 2 > lines) {
        return Alignment::Left;
    }
    return isMost(right, lines)     ? Alignment::Right
           : isMost(centred, lines) ? Alignment::Centred
                                    : Alignment::Left;
}

/// Where most lines begin that are set in further than the one before and have no amount, in letters from the
/// column's edge.
std::optional<double> LineFlow::edgeOfRests() const
{
    std::vector<double> edges;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (followsDown(i) && indent(i) - indent(i - 1) > sameEdge &&
            !LineShape::startsWithAmount(m_lines[i].text)) {
            edges.push_back(indent(i));
        }
    }
    return edges.empty() ? std::nullopt : std::optional(medianOf(std::move(edges)));
}

/// Whether most lines that stand below names, beside a column of amounts, are rests: hardly a list names half
/// of its ingredients without their amounts.
bool LineFlow::areMostlyRests() const
{
    constexpr qsizetype leastAmounts = 6;
    qsizetype amounts = 0;
    qsizetype others = 0;
    qsizetype behindFull = 0;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (LineShape::startsWithAmount(m_lines[i].text)) {
            ++amounts;
        } else if (indent(i) > sameEdge) {
            ++others;
            behindFull += hadRoom(i) ? 0 : 1;
        }
    }
    return amounts >= leastAmounts && others * 10 >= amounts * 7 && behindFull * 2 >= others;
}

/// The lines of an entry are set in below its first one.
void LineFlow::judgeByHangingIndent()
{
    // A column of names beside one of amounts looks alike, where a name has no amount.
    constexpr double widestHang = 5;
    const auto hangOf = [&](qsizetype i) { return followsDown(i) ? indent(i) - indent(i - 1) : 0; };
    const std::optional<double> restEdge = edgeOfRests();
    if (!restEdge) {
        return;
    }
    const auto isHungAmount = [&](qsizetype i) {
        return hangOf(i) > sameEdge && LineShape::startsWithAmount(m_lines[i].text) &&
               *restEdge - indent(i) > sameEdge;
    };
    bool hasHungAmounts = false;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        hasHungAmounts = hasHungAmounts || isHungAmount(i);
    }
    const bool mostlyRests = areMostlyRests();
    const auto hadMuchRoom = [&](qsizetype i) {
        constexpr double muchRoom = 6;
        return fits(i, limit(i - 1) - muchRoom * m_letter);
    };
    // So they are where the amounts are set to the right edge of their column.
    const auto isRest = [&](qsizetype i, double hang) {
        return hang > widestHang || hasHungAmounts ? !(mostlyRests ? hadMuchRoom(i) : hadRoom(i))
                                                   : followsLongLine(i);
    };
    std::vector<double> hangs;
    qsizetype behindFull = 0;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (hangOf(i) > sameEdge && !isHungAmount(i)) {
            hangs.push_back(hangOf(i));
            behindFull += isRest(i, hangOf(i)) ? 1 : 0;
        }
    }
    if (!isMost(behindFull, static_cast<qsizetype>(hangs.size()))) {
        return;
    }
    const double usual = medianOf(hangs);
    const auto alike = std::count_if(hangs.begin(), hangs.end(),
                                     [&](double hang) { return std::abs(hang - usual) < sameEdge; });
    if (!isMost(alike, static_cast<qsizetype>(hangs.size()))) {
        return;
    }
    // The edge at which the entry at hand begins.
    double edge = 0;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const double setIn = indent(i);
        if (i > 0 && !followsDown(i)) {
            // In a new column: a line that is set in is the rest of an entry, if such lines follow full ones.
            m_verdicts[i] = setIn > sameEdge ? Verdict::Unknown : Verdict::Begins;
            edge = 0;
        } else if (i > 0 && std::abs(setIn - edge - usual) < sameEdge && !isHungAmount(i)) {
            const bool isThird = usual <= widestHang && std::abs(indent(i - 1) - setIn) < sameEdge;
            const bool goesOn = isThird || isRest(i, usual);
            m_verdicts[i] = goesOn ? Verdict::Continues : Verdict::Begins;
        } else {
            m_verdicts[i] = Verdict::Begins;
            edge = setIn;
        }
    }
}

/// The first line of a paragraph is set in, and nothing else is.
void LineFlow::judgeByFirstLineIndent()
{
    qsizetype in = 0;
    qsizetype behindEnd = 0;
    qsizetype out = 0;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (!followsDown(i)) {
            continue;
        }
        if (indent(i) > sameEdge) {
            ++in;
            // What a colon announces may be set in as well.
            const QString& above = m_lines[i - 1].text;
            behindEnd += LineShape::endsSentence(above) && !above.endsWith(u':') ? 1 : 0;
        } else {
            ++out;
        }
    }
    if (in == 0 || !isMost(behindEnd, in) || in > out * 2) {
        return;
    }
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (indent(i) > sameEdge) {
            m_verdicts[i] = Verdict::Begins;
        } else if (!hadRoom(i) || !LineShape::endsSentence(m_lines[i - 1].text)) {
            m_verdicts[i] = Verdict::Continues;
        }
    }
}

double LineFlow::gap(qsizetype i) const
{
    return (m_lines[i].place.bottom() - m_lines[i - 1].place.bottom()) / m_height;
}

/// What line `i` looks like, whatever stands above it: with an amount or a bullet, or below a line that had
/// room for more, the beginning of an entry; in lower case or with a bracket below a full one, a rest.
LineFlow::Verdict LineFlow::look(qsizetype i) const
{
    const QString& text = m_lines[i].text;
    if (LineShape::hasAmountOrBullet(text) || !followsLongLine(i)) {
        return Verdict::Begins;
    }
    const bool isRest = text.front().isLower() && !LineShape::startsWithAmountWord(text);
    return isRest || text.front() == u'(' ? Verdict::Continues : Verdict::Unknown;
}

/// The blank spaces that tell entries from their rests, where some do.
std::optional<LineFlow::PartingGaps> LineFlow::partingGaps() const
{
    // Browsers round the places of lines, so that equal spaces differ.
    constexpr double leastStep = 0.03;
    struct Gap
    {
        double size;
        Verdict look;
    };
    std::vector<Gap> gaps;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (followsDown(i)) {
            gaps.push_back({gap(i), look(i)});
        }
    }
    std::sort(gaps.begin(), gaps.end(), [](const Gap& a, const Gap& b) { return a.size < b.size; });
    // Below it there must be no entry, and above it no rest.
    constexpr std::ptrdiff_t leastSigns = 6;
    const auto count = [](auto begin, auto end, Verdict verdict) {
        return std::count_if(begin, end, [&](const Gap& gap) { return gap.look == verdict; });
    };
    std::optional<PartingGaps> parting;
    for (auto wide = gaps.begin(); wide != gaps.end(); ++wide) {
        const auto tight = wide == gaps.begin() ? wide : wide - 1;
        if (wide->size - tight->size < leastStep) {
            continue;
        }
        const auto rests = count(gaps.begin(), wide, Verdict::Continues);
        const auto entries = count(wide, gaps.end(), Verdict::Begins);
        const bool isClean = count(gaps.begin(), wide, Verdict::Begins) == 0 &&
                             count(wide, gaps.end(), Verdict::Continues) == 0;
        if (isClean && rests > 0 && rests + entries >= leastSigns) {
            const double middle = 0.5 * (wide->size + tight->size);
            parting = PartingGaps{parting ? parting->rest : middle, middle};
        }
    }
    return parting;
}

/// A wider blank space parts entries than lines of one entry.
void LineFlow::judgeByGaps()
{
    const std::optional<PartingGaps> parting = partingGaps();
    if (judgeByClearGaps(parting)) {
        return;
    }
    for (qsizetype i = 1; parting && i < m_lines.size(); ++i) {
        if (followsDown(i) && m_verdicts[i] == Verdict::Unknown) {
            m_verdicts[i] = gap(i) < parting->rest    ? Verdict::Continues
                            : gap(i) > parting->entry ? Verdict::Begins
                                                      : Verdict::Unknown;
        }
    }
}

/// Where the blank spaces are of two sizes that differ clearly.
bool LineFlow::judgeByClearGaps(const std::optional<PartingGaps>& parting)
{
    std::vector<double> gaps;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (followsDown(i)) {
            gaps.push_back(gap(i));
        }
    }
    if (gaps.size() < 2) {
        return false;
    }
    double limit = widestTight(gaps);
    const bool hasIndents = std::any_of(m_verdicts.begin(), m_verdicts.end(),
                                        [](Verdict verdict) { return verdict != Verdict::Unknown; });
    if (parting && !hasIndents) {
        limit = std::clamp(limit, parting->rest, parting->entry);
    }
    qsizetype tightCount = 0;
    qsizetype wideCount = 0;
    qsizetype wideRests = 0;
    qsizetype tightBehindFull = 0;
    qsizetype tightEntries = 0;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (!followsDown(i)) {
            continue;
        }
        if (gap(i) < limit) {
            ++tightCount;
            tightBehindFull += followsLongLine(i) ? 1 : 0;
            tightEntries += LineShape::hasAmountOrBullet(m_lines[i].text) ? 1 : 0;
        } else {
            ++wideCount;
            wideRests += look(i) == Verdict::Continues ? 1 : 0;
        }
    }
    // Wrapped lines follow full ones. Where most tight lines do not, or begin as entries do, the wide spaces
    // part groups of entries.
    const bool restsAreWide = wideRests > 2 * tightCount;
    if (wideCount == 0 || restsAreWide || tightEntries * 2 > tightCount ||
        !isMost(tightBehindFull, tightCount)) {
        return false;
    }
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        // Where rests are set in, what is not set in is none.
        const bool standsOut =
            m_verdicts[i] == Verdict::Begins && indent(i) < sameEdge && run(i).deepest > sameEdge;
        if (followsDown(i) && !standsOut) {
            m_verdicts[i] = gap(i) < limit ? Verdict::Continues : Verdict::Begins;
        }
    }
    return true;
}

} // namespace ovrin
