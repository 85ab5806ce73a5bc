#include "import/document/RecipeOutline.h"

#include "import/document/IngredientSearch.h"
#include "import/document/LineShape.h"
#include "import/document/ListRemarks.h"
#include "import/document/MethodEnd.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeSections.h"
#include "import/document/StepNumbers.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

/// A title, an ingredient or two, a step.
constexpr qsizetype leastLines = 4;

/// Where, among the lines before a second list of ingredients, the next recipe's own lines begin.
qsizetype nextTitle(const QList<TextLine>& lines)
{
    for (qsizetype i = lines.size() - 1; i >= 0; --i) {
        if (isLargeType(lines[i]) && looksLikeTitle(lines[i])) {
            while (i > 0 && isLargeType(lines[i - 1]) && !LineShape::endsSentence(lines[i - 1].text)) {
                --i;
            }
            return i;
        }
    }
    // Type of one size: the last line that can be a title and stands apart.
    for (qsizetype i = lines.size() - 1; i > 0 && i + 8 > lines.size(); --i) {
        if (lines[i].startsBlock && looksLikeTitle(lines[i]) && !LineShape::numbered(lines[i].text)) {
            return i;
        }
    }
    return lines.size();
}

/// The first stretch of lines between titles that holds both a list and a method.
QList<TextLine> firstWhole(const QList<TextLine>& lines)
{
    QList<qsizetype> titles;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const bool begins = i == 0 || !isLargeType(lines[i - 1]) || lines[i].startsBlock;
        if (begins && isLargeType(lines[i]) && looksLikeTitle(lines[i])) {
            titles.append(i);
        }
    }
    constexpr qsizetype mostTitles = 40;
    for (qsizetype k = 0; k + 1 < std::min(titles.size(), mostTitles); ++k) {
        // Smaller type below a title heads a part of the same recipe.
        constexpr double alike = 0.93;
        const double height = lines[titles[k]].relativeHeight;
        const auto next = std::find_if(titles.begin() + k + 1, titles.end(), [&](qsizetype i) {
            return lines[i].relativeHeight >= alike * height;
        });
        const qsizetype end = next == titles.end() ? lines.size() : *next;
        if (end == lines.size() || end - titles[k] < leastLines) {
            continue;
        }
        QList<TextLine> own = lines.sliced(titles[k], end - titles[k]);
        const IngredientSearch search(own);
        const LineRange list = search.list();
        if (!list.isEmpty() &&
            (search.methodAbove(list) < list.begin || search.directionsBegin(list.begin) < own.size())) {
            return own;
        }
    }
    return lines;
}

/// Where nothing looks like a list, numbered steps still are the method, and what stands between them and the
/// last line of the head is the list.
RecipeOutline aboveNumberedSteps(const QList<TextLine>& lines)
{
    const IngredientSearch search(lines);
    const qsizetype method = search.hasNumberedSteps() ? search.directionsBegin(0) : lines.size();
    const auto isHead = [&](qsizetype i) {
        constexpr double listed = 0.5;
        const QString& text = lines[i].text;
        const bool isIntroduction = LineShape::isProse(text) && LineShape::endsSentence(text) &&
                                    LineShape::ingredientLikeness(text) < listed;
        return i == 0 || isLargeType(lines[i]) || isIntroduction || RecipeFacts::isFact(text);
    };
    qsizetype list = method;
    while (method < lines.size() && list > 0 && !isHead(list - 1)) {
        --list;
    }
    return {.head = lines.first(list),
            .ingredients = lines.sliced(list, method - list),
            .directions = lines.sliced(method)};
}

RecipeOutline withoutHeadings(const QList<TextLine>& lines)
{
    RecipeOutline result;
    QList<TextLine> own = firstWhole(lines);
    const qsizetype further = IngredientSearch(own).furtherRecipe(1);
    // Two titles with lists of their own: only the first one's lines are looked at.
    if (further < own.size() && !IngredientSearch(own.first(further)).list().isEmpty()) {
        own = own.first(further);
    }
    result.hasMoreRecipes = own.size() < lines.size();
    const IngredientSearch search(own);
    LineRange list = search.list();
    if (list.isEmpty()) {
        // Only a list shows that another recipe follows: these are all lines.
        return aboveNumberedSteps(own);
    }
    // Whatever it looks like, the first line names the recipe where it stands apart from the list.
    constexpr double largerType = 1.05;
    if (list.begin == 0 && list.size() > 1 && looksLikeTitle(own[0]) &&
        (own[1].startsBlock || own[0].relativeHeight > largerType * own[1].relativeHeight)) {
        list.begin = 1;
    }
    const qsizetype method = search.methodAbove(list);
    if (method < list.begin) {
        result.head = own.first(method);
        result.directions = own.sliced(method, list.begin - method);
        // It goes on behind the list, as overleaf.
        if (search.hasNumberedSteps(list.end)) {
            result.directions += own.sliced(list.end);
        }
        result.ingredients = own.sliced(list.begin, list.size());
        return result;
    }
    const qsizetype split = search.directionsBegin(list.begin);
    result.head = own.first(list.begin);
    result.ingredients = own.sliced(list.begin, split - list.begin);
    result.directions = own.sliced(split);
    return result;
}

void addSection(RecipeOutline& result, const Section& section)
{
    switch (section.kind) {
    case HeadingKind::Ingredients:
        result.ingredients += section.lines;
        break;
    case HeadingKind::Directions:
        result.directions += section.lines;
        break;
    case HeadingKind::None:
        result.head += section.lines;
        break;
    case HeadingKind::Other:
        break;
    }
}

/// Where, among the lines before a second method, the next recipe's own lines begin: in type as large as the
/// first one's title. `lines.size()` where they do not.
qsizetype nextTitleLike(const QList<TextLine>& head, const QList<TextLine>& lines)
{
    constexpr double alike = 0.93;
    const double height = TextLines::tallest(head);
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const TextLine& line) {
        return isLargeType(line) && looksLikeTitle(line) && line.relativeHeight > alike * height;
    });
    return found - lines.begin();
}

/// Whether directions without a heading follow the list that `lines` begin with.
bool hasMethodBehindList(const QList<TextLine>& lines)
{
    const QList<TextLine> method = lines.sliced(IngredientSearch(lines).directionsBegin(0));
    return !method.isEmpty() && IngredientSearch(method).hasSteps();
}

/// The sections of the first recipe; what follows its end is cut off.
RecipeOutline firstRecipe(const QList<Section>& all)
{
    RecipeOutline result;
    const bool hasLists = std::any_of(all.begin(), all.end(), [](const Section& section) {
        return section.kind == HeadingKind::Ingredients;
    });
    for (qsizetype i = 0; i < all.size(); ++i) {
        const bool complete = !result.ingredients.isEmpty() && !result.directions.isEmpty();
        if (complete && all[i].kind == HeadingKind::Ingredients && !all[i].lines.isEmpty()) {
            result.hasMoreRecipes = true;
            break;
        }
        if (complete && all[i].kind == HeadingKind::None) {
            // The title of the next recipe.
            result.hasMoreRecipes = true;
            break;
        }
        Section section = all[i];
        const bool nextIsSecondList =
            !result.ingredients.isEmpty() && i + 1 < all.size() &&
            all[i + 1].kind == HeadingKind::Ingredients &&
            (section.kind == HeadingKind::Directions || !result.directions.isEmpty());
        if (nextIsSecondList) {
            section.lines = section.lines.first(nextTitle(section.lines));
        }
        const auto next = std::find_if(all.begin() + i + 1, all.end(),
                                       [](const Section& other) { return other.kind != HeadingKind::Other; });
        if (section.kind == HeadingKind::Ingredients && result.directions.isEmpty() && next != all.end() &&
            next->kind == HeadingKind::Ingredients && hasMethodBehindList(section.lines)) {
            section.lines = section.lines.first(nextTitle(section.lines));
            addSection(result, section);
            result.hasMoreRecipes = true;
            break;
        }
        const bool nextIsSecondMethod = section.kind != HeadingKind::None && !hasLists &&
                                        i + 1 < all.size() && all[i + 1].kind == HeadingKind::Directions;
        const qsizetype end =
            nextIsSecondMethod ? nextTitleLike(result.head, section.lines) : section.lines.size();
        result.hasMoreRecipes = end < section.lines.size();
        section.lines = section.lines.first(end);
        addSection(result, section);
        if (result.hasMoreRecipes) {
            break;
        }
    }
    return result;
}

/// Directions without a heading: behind the list, or above it, as beside a list at the page's edge.
void findDirections(RecipeOutline& result)
{
    const bool mayStandAbove =
        IngredientSearch(result.head).hasNumberedSteps() || !IngredientSearch(result.ingredients).hasSteps();
    if (mayStandAbove) {
        const QList<TextLine> both = result.head + result.ingredients;
        const qsizetype method = IngredientSearch(both).methodAbove({result.head.size(), both.size()});
        if (method < result.head.size()) {
            result.directions = result.head.sliced(method);
            result.head = result.head.first(method);
            return;
        }
    }
    const qsizetype split = IngredientSearch(result.ingredients).directionsBegin(0);
    result.directions = result.ingredients.sliced(split);
    result.ingredients = result.ingredients.first(split);
    const qsizetype next = IngredientSearch(result.directions).furtherRecipe(1);
    result.hasMoreRecipes = result.hasMoreRecipes || next < result.directions.size();
    result.directions = result.directions.first(std::min(next, result.directions.size()));
}

RecipeOutline wholeOutline(const QList<TextLine>& lines)
{
    const QList<Section> all = sectionsOf(lines);
    const auto has = [&](HeadingKind kind) {
        return std::any_of(all.begin(), all.end(),
                           [&](const Section& s) { return s.kind == kind && !s.lines.isEmpty(); });
    };
    if (!has(HeadingKind::Ingredients) && !has(HeadingKind::Directions)) {
        QList<TextLine> own;
        for (const Section& section : all) {
            own += section.kind == HeadingKind::None ? section.lines : QList<TextLine>();
        }
        return withoutHeadings(own);
    }
    {
        // A whole recipe without headings above one that has some.
        const QList<TextLine>& above = all.first().lines;
        const QList<TextLine> own = firstWhole(above);
        if (own.size() < above.size()) {
            RecipeOutline whole = withoutHeadings(own);
            whole.hasMoreRecipes = true;
            return whole;
        }
    }
    RecipeOutline result = firstRecipe(all);
    if (result.directions.isEmpty()) {
        findDirections(result);
    } else if (result.ingredients.isEmpty()) {
        const LineRange list = IngredientSearch(result.head).listAboveMethod();
        result.ingredients = result.head.sliced(list.begin, list.size());
        result.head.remove(list.begin, list.size());
    } else if (!IngredientSearch(result.directions).hasSteps() &&
               IngredientSearch(result.ingredients).hasNumberedSteps()) {
        // The method's heading was read with what stands beside it.
        const qsizetype split = IngredientSearch(result.ingredients).directionsBegin(0);
        result.head += result.directions;
        result.directions = result.ingredients.sliced(split);
        result.ingredients = result.ingredients.first(split);
    } else {
        const qsizetype end = IngredientSearch(result.ingredients).listEnd();
        result.head += result.ingredients.sliced(end);
        result.ingredients = result.ingredients.first(end);
    }
    return result;
}

/// Whether line `i` and the one behind it are facts, or their labels and values one by one.
bool areFacts(const QList<TextLine>& lines, qsizetype i)
{
    static const QRegularExpression count(QStringLiteral("^\\d{1,2}$"));
    const auto isTimeOrLabel = [](const QString& text) {
        return RecipeFacts::isBareLabel(text) || RecipeFacts::isDuration(text);
    };
    if (RecipeFacts::areSeveral(lines[i].text)) {
        return true;
    }
    return i + 1 < lines.size() && isTimeOrLabel(lines[i].text) &&
           (isTimeOrLabel(lines[i + 1].text) || count.match(lines[i + 1].text).hasMatch());
}

/// Where `lines` end in a row of facts about the recipe.
qsizetype factsBegin(const QList<TextLine>& lines)
{
    constexpr qsizetype mostLines = 12;
    for (qsizetype i = std::max<qsizetype>(1, lines.size() - mostLines); i < lines.size(); ++i) {
        const bool mayBegin = lines[i].startsBlock || LineShape::endsSentence(lines[i - 1].text) ||
                              !LineShape::isProse(lines[i - 1].text);
        const bool goesOn = std::any_of(lines.begin() + i, lines.end(), [](const TextLine& line) {
            return (LineShape::numbered(line.text) && LineShape::isProse(line.text)) ||
                   (LineShape::startsWithMeasure(line.text) && !RecipeFacts::isDuration(line.text));
        });
        if (mayBegin && !goesOn && areFacts(lines, i)) {
            return i;
        }
    }
    return lines.size();
}

/// Where, in a list, steps begin that count on from `last`: the end of a method that was read with the list
/// beside it. One or two must look like steps and end the list; of more, most must.
qsizetype stepsCountedOn(const QList<TextLine>& list, int last)
{
    constexpr int leastSteps = 3;
    qsizetype first = list.size();
    int found = 0;
    int certain = 0;
    for (qsizetype i = 0; i < list.size() && last > 0; ++i) {
        const auto number = LineShape::counted(list[i].text);
        if (!number || number->number != last + found + 1) {
            continue;
        }
        constexpr qsizetype leastSpaces = 4;
        const bool isStep = LineShape::isProse(number->rest) || LineShape::startsWithVerb(number->rest);
        if (found > 0 || isStep || number->rest.count(u' ') >= leastSpaces) {
            first = found == 0 ? i : first;
            ++found;
            certain += isStep ? 1 : 0;
        }
    }
    const bool endsList = std::none_of(list.begin() + first, list.end(), [](const TextLine& line) {
        return LineShape::startsWithMeasure(line.text);
    });
    const bool areFew = found > 0 && certain == found && last >= leastSteps && endsList &&
                        LineShape::looksLikeStep(LineShape::counted(list[first].text)->rest);
    return areFew || (found >= leastSteps && certain * 2 > found) ? first : list.size();
}

/// Cuts `part` off before line `end`; the rest goes behind `other`.
void endAt(qsizetype end, QList<TextLine>& part, QList<TextLine>& other)
{
    other += part.sliced(end);
    part = part.first(end);
}

} // namespace

RecipeOutline outline(const QList<TextLine>& lines)
{
    RecipeOutline result = wholeOutline(lines);
    const std::vector<qsizetype> counted = countedLines(result.directions);
    const int last = counted.empty() ? 0 : LineShape::counted(result.directions[counted.back()].text)->number;
    endAt(stepsCountedOn(result.ingredients, last), result.ingredients, result.directions);
    endAt(methodEnd(result.directions), result.directions, result.head);
    endAt(factsBegin(result.directions), result.directions, result.head);
    endAt(factsBegin(result.ingredients), result.ingredients, result.head);
    const LineRange list = withoutRemarks(result.ingredients);
    endAt(list.end, result.ingredients, result.head);
    result.head += result.ingredients.first(list.begin);
    result.ingredients.remove(0, list.begin);
    return result;
}

} // namespace ovrin
