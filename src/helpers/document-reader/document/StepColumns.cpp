#include "helpers/document-reader/document/StepColumns.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>

namespace ovrin::documentreader {

namespace {

/// The number in front of a step.
struct StepNumber
{
    std::size_t word = 0;
    int number = 0;
    /// Where the step's text begins, in points.
    double text = 0;
    double top = 0;
    /// No other word stands in front of it on its line.
    bool beginsLine = true;
};

std::optional<int> numberOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^\\(?(\\d{1,2})[.)]$"));
    const auto match = form.match(text);
    return match.hasMatch() ? std::optional(match.captured(1).toInt()) : std::nullopt;
}

/// From left to right by where the steps' texts begin, and down the page.
std::vector<StepNumber> stepNumbers(const std::vector<Word>& words)
{
    std::vector<bool> follows(words.size(), false);
    for (const Word& word : words) {
        if (word.next >= 0) {
            follows[word.next] = true;
        }
    }
    std::vector<StepNumber> numbers;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::optional<int> number = numberOf(words[i].text);
        if (number && words[i].next >= 0) {
            const double text = words[words[i].next].box.left();
            numbers.push_back({i, *number, text, words[i].box.top(), !follows[i]});
        }
    }
    std::sort(numbers.begin(), numbers.end(),
              [](const StepNumber& a, const StepNumber& b) { return a.text < b.text; });
    return numbers;
}

/// Whether the numbers from `begin` to before `end`, of one column, count up by one, and do begin lines
/// ("Step 1." does not).
template<typename Iterator>
bool countUp(Iterator begin, Iterator end)
{
    constexpr std::ptrdiff_t leastSteps = 3;
    return end - begin >= leastSteps &&
           std::any_of(begin, end, [](const StepNumber& number) { return number.beginsLine; }) &&
           std::adjacent_find(begin, end, [](const StepNumber& a, const StepNumber& b) {
               return b.number != a.number + 1;
           }) == end;
}

} // namespace

std::vector<Word> withStepColumnsApart(std::vector<Word> words)
{
    // In heights of a line.
    constexpr double sameEdge = 0.25;
    std::vector<StepNumber> numbers = stepNumbers(words);
    for (auto begin = numbers.begin(); begin != numbers.end();) {
        const double reach = sameEdge * words[begin->word].box.height();
        auto end = begin;
        while (end != numbers.end() && end->text - begin->text < reach) {
            ++end;
        }
        std::sort(begin, end, [](const StepNumber& a, const StepNumber& b) { return a.top < b.top; });
        if (countUp(begin, end)) {
            for (; begin != end; ++begin) {
                words[begin->word].beginsStep = true;
            }
        }
        begin = end;
    }
    for (Word& word : words) {
        if (word.next >= 0 && words[word.next].beginsStep) {
            word.next = -1;
            word.hasSpaceAfter = false;
        }
    }
    return words;
}

} // namespace ovrin::documentreader
