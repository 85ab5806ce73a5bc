#include "import/document/MethodEnd.h"

#include "import/document/IngredientSearch.h"
#include "import/document/LineShape.h"
#include "import/document/PageMeasure.h"
#include "import/document/StepNumbers.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace ovrin {

namespace {

/// Whether line `i` heads something in larger type than the step on line `step` has, or in smaller type a
/// text that is smaller too.
bool headsOtherText(const QList<TextLine>& lines, qsizetype i, qsizetype step)
{
    constexpr double largerType = 1.08;
    constexpr double smallerType = 0.96;
    const double height = lines[step].relativeHeight;
    const bool isSmall = i + 1 < lines.size() && lines[i].relativeHeight < smallerType * height &&
                         lines[i + 1].relativeHeight < smallerType * height;
    return lines[i].startsBlock && (isSmall || lines[i].relativeHeight > largerType * height) &&
           looksLikeTitle(lines[i]) && !LineShape::counted(lines[i].text);
}

/// Whether line `i` stands further below the one before than any paragraph does.
bool isFarBelow(const QList<TextLine>& lines, qsizetype i)
{
    constexpr double widestGap = 3;
    const QRectF& above = lines[i - 1].place;
    return !above.isNull() && lines[i].page == lines[i - 1].page &&
           lines[i].place.top() - above.bottom() > widestGap * above.height();
}

/// How far line `i` stands below the one before, in its height; nothing where it stands elsewhere.
std::optional<double> gapAbove(const QList<TextLine>& lines, qsizetype i)
{
    const QRectF& place = lines[i].place;
    const bool isBelow = i > 0 && !place.isNull() && lines[i].page == lines[i - 1].page &&
                         place.top() > lines[i - 1].place.top();
    return isBelow ? std::optional((place.top() - lines[i - 1].place.bottom()) / place.height())
                   : std::nullopt;
}

/// The blank spaces of a numbered method, as far as it was looked at.
class StepGaps
{
public:
    /// `numbered` are the lines that number its steps.
    StepGaps(const QList<TextLine>& lines, const std::vector<qsizetype>& numbered)
        : m_lines(lines)
    {
        constexpr std::size_t leastSteps = 3;
        // Numbers that follow each other stand in a column of their own, beside their steps.
        const auto isAlone = [&](qsizetype a, qsizetype b) {
            return b == a + 1 && LineShape::counted(lines[a].text)->rest.isEmpty();
        };
        m_isKnown = numbered.size() >= leastSteps &&
                    std::adjacent_find(numbered.begin(), numbered.end(), isAlone) == numbered.end();
        auto number = numbered.begin() + 1;
        for (qsizetype i = numbered.front() + 1; i <= numbered.back(); ++i) {
            const bool isNumbered = i == *number;
            number += isNumbered ? 1 : 0;
            add(i, isNumbered);
        }
    }

    /// Takes line `i`, the next one, for one inside a step.
    void addInside(qsizetype i) { add(i, false); }

    /// Whether line `i`, without a number, stands off as only numbers do above it.
    bool isAsAboveNumber(qsizetype i) const
    {
        const std::optional<double> gap = gapAbove(m_lines, i);
        return m_isKnown && gap && m_leastAboveNumber - m_mostInside > sameGap &&
               *gap > m_leastAboveNumber - 0.5 * sameGap && !LineShape::counted(m_lines[i].text);
    }

private:
    static constexpr double sameGap = 0.12;

    void add(qsizetype i, bool isNumbered)
    {
        const std::optional<double> gap = gapAbove(m_lines, i);
        if (gap && isNumbered) {
            m_leastAboveNumber = std::min(m_leastAboveNumber, *gap);
        } else if (gap) {
            m_mostInside = std::max(m_mostInside, *gap);
        }
    }

    const QList<TextLine>& m_lines;
    bool m_isKnown = false;
    double m_leastAboveNumber = 1e9;
    double m_mostInside = -1e9;
};

/// Where a numbered method has ended: text that stands apart behind its last step. On a page of two columns
/// this is what spans them, read last though it may stand above.
qsizetype endOfNumbered(const QList<TextLine>& lines)
{
    const std::vector<qsizetype> numbered = countedLines(lines);
    if (numbered.size() < 2) {
        return lines.size();
    }
    const qsizetype last = numbered.back();
    StepGaps gaps(lines, numbered);
    for (qsizetype i = last + 1; i < lines.size(); ++i) {
        const bool isElsewhere = lines[i].startsBlock && lines[i].page == lines[i - 1].page &&
                                 mayHaveJumped(lines, i) && !LineShape::counted(lines[i].text);
        if (LineShape::endsSentence(lines[i - 1].text) && (isElsewhere || headsOtherText(lines, i, last) ||
                                                           isFarBelow(lines, i) || gaps.isAsAboveNumber(i))) {
            return i;
        }
        gaps.addInside(i);
    }
    return lines.size();
}

/// Where behind the last step smaller type begins: an introduction or a note at the page's foot.
qsizetype smallTypeBegin(const QList<TextLine>& lines, double smaller)
{
    std::vector<double> heights;
    for (const TextLine& line : lines) {
        heights.push_back(line.relativeHeight);
    }
    if (heights.empty()) {
        return 0;
    }
    const double small = smaller * medianOf(std::move(heights));
    qsizetype begin = lines.size();
    while (begin > 0 && lines[begin - 1].relativeHeight < small) {
        --begin;
    }
    return begin;
}

/// Where a block begins that has a blank to fill in: a form, as for a newsletter.
qsizetype formBegin(const QList<TextLine>& lines)
{
    constexpr qsizetype mostLines = 4;
    const auto blank = std::find_if(lines.begin(), lines.end(), [](const TextLine& line) {
        return line.text.contains(QStringLiteral("_____"));
    });
    const qsizetype found = blank - lines.begin();
    for (qsizetype i = found; found < lines.size() && i > 0 && found - i < mostLines; --i) {
        if (lines[i].startsBlock || lines[i].page != lines[i - 1].page) {
            return i;
        }
    }
    return found;
}

} // namespace

qsizetype methodEnd(const QList<TextLine>& lines)
{
    // Where the steps are not counted, a little smaller is enough.
    const bool isNumbered = IngredientSearch(lines).hasNumberedSteps();
    return std::min(
        {endOfNumbered(lines), smallTypeBegin(lines, isNumbered ? 0.75 : 0.92), formBegin(lines)});
}

} // namespace ovrin
