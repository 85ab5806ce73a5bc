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
std::vector<StepNumber> stepNumbers(const std::vector<Word>& words, const std::vector<qsizetype>& previous)
{
    std::vector<StepNumber> numbers;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::optional<int> number = numberOf(words[i].text);
        if (number && words[i].next >= 0) {
            const double text = words[words[i].next].box.left();
            numbers.push_back({i, *number, text, words[i].box.top(), previous[i] < 0});
        }
    }
    std::sort(numbers.begin(), numbers.end(),
              [](const StepNumber& a, const StepNumber& b) { return a.text < b.text; });
    return numbers;
}

/// Whether the numbers from `begin` to before `end` count up by one.
template<typename Iterator>
bool countUp(Iterator begin, Iterator end)
{
    return std::adjacent_find(begin, end, [](const StepNumber& a, const StepNumber& b) {
               return b.number != a.number + 1;
           }) == end;
}

/// Whether the numbers from `begin` to before `end` are those of a column's steps. Enough of them are where
/// some begin lines ("Step 1." does not); fewer where the lines of their texts begin below each other, closer
/// than `reach`, and no mere label stands in front of a number.
template<typename Iterator>
bool areSteps(Iterator begin, Iterator end, const std::vector<Word>& words,
              const std::vector<qsizetype>& previous, double reach)
{
    constexpr std::ptrdiff_t enough = 3;
    constexpr std::ptrdiff_t leastLines = 2;
    if (!countUp(begin, end)) {
        return false;
    }
    if (end - begin >= enough) {
        return std::any_of(begin, end, [](const StepNumber& number) { return number.beginsLine; });
    }
    std::ptrdiff_t lines = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        lines += previous[i] < 0 && std::abs(words[i].box.left() - begin->text) < reach ? 1 : 0;
    }
    const auto isLabelled = [&](const StepNumber& number) {
        const qsizetype before = previous[number.word];
        return before >= 0 && previous[static_cast<std::size_t>(before)] < 0;
    };
    return lines >= leastLines && std::none_of(begin, end, isLabelled);
}

} // namespace

std::vector<Word> withStepColumnsApart(std::vector<Word> words)
{
    // In heights of a line.
    constexpr double sameEdge = 0.25;
    std::vector<qsizetype> previous(words.size(), -1);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i].next >= 0) {
            previous[words[i].next] = static_cast<qsizetype>(i);
        }
    }
    std::vector<StepNumber> numbers = stepNumbers(words, previous);
    for (auto begin = numbers.begin(); begin != numbers.end();) {
        const double reach = sameEdge * words[begin->word].box.height();
        auto end = begin;
        while (end != numbers.end() && end->text - begin->text < reach) {
            ++end;
        }
        std::sort(begin, end, [](const StepNumber& a, const StepNumber& b) { return a.top < b.top; });
        if (areSteps(begin, end, words, previous, reach)) {
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
