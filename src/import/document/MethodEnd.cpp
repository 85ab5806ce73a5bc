#include "import/document/MethodEnd.h"

#include "import/document/IngredientSearch.h"
#include "import/document/LineShape.h"
#include "import/document/PageMeasure.h"

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

/// The lines that number steps, in the order of their count.
std::vector<qsizetype> numberedLines(const QList<TextLine>& lines)
{
    std::vector<qsizetype> numbered;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto number = LineShape::counted(lines[i].text);
        if (number && number->number == static_cast<int>(numbered.size()) + 1) {
            numbered.push_back(i);
        }
    }
    return numbered;
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

/// Whether line `i`, behind the last number, begins a paragraph as only numbers do above it: by the blank
/// space, or out of the edge that the rests of steps keep.
bool isOutsideSteps(const QList<TextLine>& lines, const std::vector<qsizetype>& numbered, qsizetype i)
{
    constexpr std::size_t leastSteps = 3;
    constexpr double sameGap = 0.12;
    const std::optional<double> gap = gapAbove(lines, i);
    // Numbers that follow each other stand in a column of their own, beside their steps.
    const bool areAlone = std::adjacent_find(numbered.begin(), numbered.end(), [&](qsizetype a, qsizetype b) {
                              return b == a + 1 && LineShape::counted(lines[a].text)->rest.isEmpty();
                          }) != numbered.end();
    if (!gap || areAlone || numbered.size() < leastSteps || LineShape::counted(lines[i].text)) {
        return false;
    }
    double leastAboveNumber = 1e9;
    double mostInside = -1e9;
    for (qsizetype k = numbered.front() + 1; k < i; ++k) {
        const bool isNumbered = std::find(numbered.begin(), numbered.end(), k) != numbered.end();
        const std::optional<double> own = gapAbove(lines, k);
        if (own && isNumbered) {
            leastAboveNumber = std::min(leastAboveNumber, *own);
        } else if (own) {
            mostInside = std::max(mostInside, *own);
        }
    }
    return leastAboveNumber - mostInside > sameGap && *gap > leastAboveNumber - 0.5 * sameGap;
}

/// Where a numbered method has ended: text that stands apart behind its last step. On a page of two columns
/// this is what spans them, read last though it may stand above.
qsizetype endOfNumbered(const QList<TextLine>& lines)
{
    const std::vector<qsizetype> numbered = numberedLines(lines);
    if (numbered.size() < 2) {
        return lines.size();
    }
    const qsizetype last = numbered.back();
    for (qsizetype i = last + 1; i < lines.size(); ++i) {
        const bool isElsewhere = lines[i].startsBlock && lines[i].page == lines[i - 1].page &&
                                 mayHaveJumped(lines, i) && !LineShape::counted(lines[i].text);
        if (LineShape::endsSentence(lines[i - 1].text) &&
            (isElsewhere || headsOtherText(lines, i, last) || isFarBelow(lines, i) ||
             isOutsideSteps(lines, numbered, i))) {
            return i;
        }
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
