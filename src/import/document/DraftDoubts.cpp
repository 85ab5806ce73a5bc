#include "import/document/DraftDoubts.h"

#include "import/document/LineShape.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

namespace ovrin {

namespace {

template<typename List, typename Test>
double shareOf(const List& list, Test test)
{
    const auto count = std::count_if(list.begin(), list.end(), test);
    return static_cast<double>(count) / static_cast<double>(std::max<qsizetype>(1, list.size()));
}

bool isUpwards(const TextLine& line, const TextLine& next)
{
    return next.page == line.page && next.place.center().y() < line.place.top();
}

/// Whether the text goes on below and beside, where nobody looks for it.
bool isSideways(const TextLine& line, const TextLine& next)
{
    const QRectF& a = line.place;
    const QRectF& b = next.place;
    return next.page == line.page && b.center().y() >= a.bottom() && !next.text.front().isLower() &&
           (a.left() >= b.right() || b.left() >= a.right());
}

template<typename Test>
double countOf(const QList<TextLine>& lines, double most, Test test)
{
    double count = 0;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        count += test(lines[i - 1], lines[i]) ? 1 : 0;
    }
    return std::min(count, most);
}

/// Number of a direction ("3. Stir"); a bare one may be an amount.
std::optional<int> countedNumber(const TextLine& line)
{
    const auto numbered = LineShape::numbered(line.text);
    return numbered && !LineShape::isBareNumber(line.text) ? std::optional(numbered->number) : std::nullopt;
}

/// Lines outside the method that its numbers would go on with.
double lostSteps(const RecipeOutline& parts)
{
    constexpr double most = 4;
    std::set<int> numbers;
    for (const TextLine& line : parts.directions) {
        if (const auto number = countedNumber(line)) {
            numbers.insert(*number);
        }
    }
    const QList<TextLine> others = parts.head + parts.ingredients;
    const auto count = std::count_if(others.begin(), others.end(), [&](const TextLine& line) {
        const auto number = countedNumber(line);
        return number && numbers.contains(*number - 1) && !numbers.contains(*number);
    });
    return std::min(static_cast<double>(count), most);
}

double doubtsAboutIngredients(const QStringList& all)
{
    constexpr qsizetype longest = 70;
    constexpr qsizetype leastSentence = 30;
    QStringList entries = all;
    entries.removeIf([](const QString& entry) { return entry.endsWith(u':'); });
    return (entries.isEmpty() ? 2 : 0) +
           0.5 * shareOf(entries, [](const QString& entry) { return entry.front().isLower(); }) +
           4 * shareOf(entries, [](const QString& entry) { return entry.size() > longest; }) +
           2 * shareOf(entries, [](const QString& entry) {
               return entry.size() > leastSentence && LineShape::endsSentence(entry);
           });
}

double doubtsAboutSteps(const QList<RecipeStep>& steps)
{
    QStringList paragraphs;
    for (const RecipeStep& step : steps) {
        paragraphs += step.paragraphs;
    }
    const auto characters = static_cast<double>(paragraphs.join(QString()).size());
    return (paragraphs.isEmpty() ? 2 : 0) + 5 * shareOf(paragraphs, LineShape::startsWithAmount) -
           0.4 * std::log(1 + characters);
}

} // namespace

double doubtsAbout(const RecipeDraft& draft, const RecipeOutline& parts, const QList<TextLine>& lines)
{
    constexpr double titleType = 1.3;
    constexpr double sameType = 0.1;
    const bool hasTallLines = TextLines::tallest(parts.ingredients + parts.directions) > titleType;
    const bool isTallestLost = TextLines::tallest(lines) > TextLines::tallest(parts.head) + sameType;
    const double left =
        static_cast<double>(parts.head.size()) / static_cast<double>(std::max<qsizetype>(1, lines.size()));
    return doubtsAboutIngredients(draft.ingredients) + doubtsAboutSteps(draft.steps) +
           (hasTallLines ? 2 : 0) + (isTallestLost ? 1.5 : 0) + 3.5 * left +
           0.8 * countOf(lines, 6, isSideways) + 0.75 * countOf(parts.directions, 4, isUpwards) +
           2.5 * lostSteps(parts);
}

} // namespace ovrin
