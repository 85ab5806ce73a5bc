#include "import/document/StepNumbers.h"

#include "import/document/IngredientSearch.h"
#include "import/document/LineShape.h"

#include <algorithm>
#include <optional>

namespace ovrin {

namespace {

/// Lines whose numbers count up, and how many of them stand in front of directions.
struct Count
{
    std::vector<qsizetype> lines;
    qsizetype steps = 0;

    qsizetype surplus() const { return 2 * steps - static_cast<qsizetype>(lines.size()); }
};

using Numbers = std::vector<std::optional<LineShape::Numbered>>;

/// The text from line `i`, a number's, on to the line before `end`, without the number.
QString numberedText(const QList<TextLine>& lines, const Numbers& numbers, qsizetype i, qsizetype end)
{
    constexpr qsizetype longestStep = 12;
    QString text = numbers[static_cast<std::size_t>(i)]->rest;
    for (qsizetype k = i + 1; k < std::min(end, i + longestStep); ++k) {
        text += u' ' + lines[k].text;
    }
    return text.trimmed();
}

/// "2 TL Zimt", but not "2 Slice the leeks".
bool isMeasure(const QString& text, const LineShape::Numbered& number)
{
    return LineShape::isBareNumber(text) && LineShape::startsWithMeasure(text) &&
           !LineShape::startsWithVerb(number.rest);
}

Count countFrom(const QList<TextLine>& lines, const Numbers& numbers, qsizetype begin)
{
    Count count;
    for (qsizetype i = begin; i < lines.size(); ++i) {
        const auto& number = numbers[static_cast<std::size_t>(i)];
        if (number && number->number == static_cast<int>(count.lines.size()) + 1 &&
            !isMeasure(lines[i].text, *number)) {
            count.lines.push_back(i);
        }
    }
    for (std::size_t k = 0; k < count.lines.size(); ++k) {
        const qsizetype end = k + 1 < count.lines.size() ? count.lines[k + 1] : lines.size();
        const QString text = numberedText(lines, numbers, count.lines[k], end);
        count.steps += LineShape::isProse(text) || LineShape::startsWithVerb(text) ? 1 : 0;
    }
    return count;
}

/// A single step with a number, in a column of its own.
bool isOnlyStep(const Count& count, const QList<TextLine>& lines)
{
    return count.lines.size() == 1 && count.steps == 1 && count.lines.front() > 0 &&
           lines[count.lines.front()].columnRight > 0 && mayHaveJumped(lines, count.lines.front());
}

} // namespace

std::vector<qsizetype> stepNumbers(const QList<TextLine>& lines)
{
    constexpr int mostStarts = 24;
    Numbers numbers;
    for (const TextLine& line : lines) {
        numbers.push_back(LineShape::numbered(line.text));
    }
    Count best;
    int starts = 0;
    for (qsizetype i = 0; i < lines.size() && starts < mostStarts; ++i) {
        const auto& number = numbers[static_cast<std::size_t>(i)];
        if (!number || number->number != 1) {
            continue;
        }
        // Of two lines with a 1 before the 2 the first one is an amount.
        Count count = countFrom(lines, numbers, i);
        const bool isCloser = best.lines.size() > 1 && i < best.lines[1];
        if (count.surplus() > best.surplus() || (isCloser && count.surplus() == best.surplus())) {
            best = std::move(count);
        }
        ++starts;
    }
    const bool counts = (best.steps > 1 && best.surplus() >= 0) || isOnlyStep(best, lines);
    return counts ? best.lines : std::vector<qsizetype>();
}

std::vector<qsizetype> countedLines(const QList<TextLine>& lines)
{
    // So far it is sure that they count steps: a number that the font does not have may then be left out.
    constexpr std::size_t surely = 3;
    std::vector<qsizetype> counted;
    int last = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto number = LineShape::counted(lines[i].text);
        const bool skipsOne = number && number->number == last + 2 && counted.size() >= surely &&
                              !LineShape::isBareNumber(lines[i].text);
        if (number && (number->number == last + 1 || skipsOne)) {
            counted.push_back(i);
            last = number->number;
        }
    }
    return counted;
}

} // namespace ovrin
