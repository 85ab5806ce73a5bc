#include "import/document/RecipeOutline.h"

#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeTextParser.h"
#include "import/document/RecipeWords.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

constexpr double largeType = 1.25;
/// Half of what an unremarkable short line scores, so that such lines neither open nor end a list.
constexpr double likenessOfNothing = 0.15;
constexpr double certainIngredient = 1.4;
constexpr qsizetype longestPlainIngredient = 70;

double likeness(const TextLine& line)
{
    if (RecipeFacts::isFact(line.text)) {
        return -1.5;
    }
    double score = LineShape::ingredientLikeness(line.text) - likenessOfNothing;
    score -= LineShape::looksLikeStep(line.text) ? 1.2 : 0;
    score -= line.text.size() > 55 && !LineShape::startsWithAmount(line.text) ? 0.7 : 0;
    return std::clamp(score, -2.0, 2.0);
}

struct Run
{
    qsizetype begin = 0;
    qsizetype end = 0;
    double score = 0;
    qsizetype size() const { return end - begin; }
};

/// The stretch of lines that is most like a list of ingredients.
Run ingredientRun(const QList<TextLine>& lines)
{
    Run best;
    Run current;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (current.score <= 0) {
            current = {i, i, 0};
        }
        current.score += isLargeType(lines[i]) ? -2.5 : likeness(lines[i]);
        current.end = i + 1;
        if (current.score > best.score) {
            best = current;
        }
    }
    const auto certain =
        std::count_if(lines.begin() + best.begin, lines.begin() + best.end, [](const TextLine& line) {
            return likeness(line) + likenessOfNothing > certainIngredient;
        });
    if (certain < 2) {
        return {};
    }
    // The last words of the introduction are short, as an ingredient is.
    while (best.size() > 0 && !lines[best.begin].startsBlock &&
           LineShape::endsSentence(lines[best.begin].text) &&
           LineShape::ingredientLikeness(lines[best.begin].text) < certainIngredient) {
        ++best.begin;
    }
    return best;
}

/// Where a list under a heading is followed by running text of the page: a spanning introduction that stands
/// higher than the list's end, but is read after its column.
qsizetype listEnd(const QList<TextLine>& lines)
{
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (lines[i].startsBlock && !LineShape::hasBullet(lines[i].text) &&
            LineShape::isProse(lines[i].text) && likeness(lines[i]) < -1 &&
            ingredientRun(lines.sliced(i)).size() == 0) {
            return i;
        }
    }
    return lines.size();
}

/// The first line of its own behind a list that has a bullet in front of most of its lines.
qsizetype behindBullets(const QList<TextLine>& lines)
{
    qsizetype last = -1;
    qsizetype bullets = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (LineShape::hasBullet(lines[i].text)) {
            last = i;
            ++bullets;
        }
    }
    if (bullets < 3 || bullets * 5 < (last + 1) * 3) {
        return lines.size();
    }
    for (qsizetype i = last + 1; i < lines.size(); ++i) {
        if (lines[i].startsBlock || LineShape::looksLikeStep(lines[i].text)) {
            return i;
        }
    }
    return lines.size();
}

/// Where, in a list of ingredients that no heading ends, the directions begin.
qsizetype directionsBegin(const QList<TextLine>& lines)
{
    const qsizetype behind = behindBullets(lines);
    if (behind < lines.size()) {
        return behind;
    }
    qsizetype best = lines.size();
    double bestScore = -1e9;
    double score = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const std::optional<LineShape::Numbered> number = LineShape::numbered(lines[i].text);
        const bool mayBegin = LineShape::looksLikeStep(lines[i].text) || lines[i].startsBlock ||
                              (number && number->number == 1);
        if (i > 0 && mayBegin && score > bestScore) {
            bestScore = score;
            best = i;
        }
        score += likeness(lines[i]);
    }
    return score > bestScore ? lines.size() : best;
}

bool looksLikeTitle(const TextLine& line)
{
    const QString& text = line.text;
    return text.size() >= 3 && text.size() <= 90 && !LineShape::startsWithAmount(text) &&
           !LineShape::hasBullet(text) && !LineShape::endsSentence(text) && !LineShape::isProse(text) &&
           text.front().isUpper() && !RecipeFacts::isFact(text);
}

struct Section
{
    HeadingKind kind = HeadingKind::None;
    QList<TextLine> lines;
};

QList<Section> sections(const QList<TextLine>& lines)
{
    QList<Section> sections{{}};
    bool recipeBegun = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const TextLine& line = lines[i];
        // "Stir in the dry" and then "ingredients: flour, sugar": the rest of a sentence is no heading.
        const bool runsOn = !line.startsBlock && !line.text.isEmpty() && line.text.front().isLower();
        const Heading heading = runsOn ? Heading() : headingOf(line.text);
        // Above the recipe "Reviews" or "Video" is a button, not the heading of a section.
        if (heading.kind == HeadingKind::None) {
            sections.last().lines.append(line);
            continue;
        }
        if (heading.kind == HeadingKind::Other && !recipeBegun) {
            continue;
        }
        recipeBegun = true;
        const bool restIsAside = RecipeFacts::isFact(heading.rest) || heading.rest.startsWith(u'(');
        if (restIsAside) {
            sections.first().lines.append({heading.rest, true, 1, line.page});
        }
        sections.append({heading.kind, {}});
        if (!heading.rest.isEmpty() && !restIsAside) {
            sections.last().lines.append({heading.rest, true, line.relativeHeight, line.page});
        }
    }
    return sections;
}

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

/// A further recipe without headings: large type, and soon after it a list of ingredients.
qsizetype unheadedRecipe(const QList<TextLine>& lines)
{
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (!isLargeType(lines[i]) || !looksLikeTitle(lines[i])) {
            continue;
        }
        const qsizetype end = std::min(lines.size(), i + 16);
        const auto certain =
            std::count_if(lines.begin() + i + 1, lines.begin() + end, [](const TextLine& line) {
                return likeness(line) + likenessOfNothing > certainIngredient;
            });
        if (certain >= 3) {
            return i;
        }
    }
    return lines.size();
}

bool mayBeListed(const TextLine& line)
{
    return line.text.size() <= longestPlainIngredient && !LineShape::isProse(line.text) &&
           !isLargeType(line) && !RecipeFacts::isFact(line.text);
}

/// The first line of the method, where it is numbered.
qsizetype firstNumberedStep(const QList<TextLine>& lines)
{
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto number = LineShape::numbered(lines[i].text);
        const bool counts = number && number->number == 1 && !LineShape::startsWithAmount(number->rest) &&
                            !LineShape::isBareNumber(lines[i].text);
        const auto isSecond = [](const TextLine& line) {
            const auto next = LineShape::numbered(line.text);
            return next && next->number == 2 && !LineShape::isBareNumber(line.text);
        };
        if (counts && std::any_of(lines.begin() + i + 1, lines.end(), isSecond)) {
            return i;
        }
    }
    return lines.size();
}

/// A block of short lines above a block of running text.
Run shortLinedBlock(const QList<TextLine>& lines)
{
    constexpr qsizetype leastLines = 3;
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin + 1;
        while (end < lines.size() && !lines[end].startsBlock) {
            ++end;
        }
        const auto listed =
            std::count_if(lines.begin() + begin, lines.begin() + end, [](const TextLine& line) {
                return mayBeListed(line) && !LineShape::looksLikeStep(line.text);
            });
        if (end < lines.size() && end - begin >= leastLines && listed * 10 >= (end - begin) * 8 &&
            std::any_of(lines.begin() + end, lines.end(),
                        [](const TextLine& line) { return LineShape::looksLikeStep(line.text); })) {
            return {begin, end, 1};
        }
        begin = end;
    }
    return {};
}

/// The block of mostly short lines that ends right before line `end`; empty when it holds other text.
Run blockAbove(const QList<TextLine>& lines, qsizetype end)
{
    qsizetype begin = end;
    while (begin > 0 && (begin == end || !lines[begin].startsBlock)) {
        --begin;
    }
    const auto listed = std::count_if(lines.begin() + begin, lines.begin() + end, mayBeListed);
    return {listed * 10 >= (end - begin) * 6 ? begin : end, end, 0};
}

/// `run` with the plain short lines around it: an ingredient without an amount looks like nothing in
/// particular. Blocks are left behind only where the list was not found by its amounts.
Run widened(Run run, const QList<TextLine>& lines, bool acrossBlocks)
{
    while (run.begin > 0 && mayBeListed(lines[run.begin - 1]) &&
           (acrossBlocks || (run.size() > 0 && !lines[run.begin].startsBlock))) {
        --run.begin;
    }
    while (run.size() > 0 && run.end < lines.size() && mayBeListed(lines[run.end]) &&
           !lines[run.end].startsBlock && !LineShape::looksLikeStep(lines[run.end].text)) {
        ++run.end;
    }
    return run;
}

/// The list of ingredients without headings: by its amounts, or as the short lines right above a numbered
/// method, or above running text.
Run unheadedList(const QList<TextLine>& lines)
{
    const Run run = ingredientRun(lines);
    if (run.size() > 0) {
        return widened(run, lines, false);
    }
    const qsizetype step = firstNumberedStep(lines);
    return step < lines.size() ? widened(blockAbove(lines, step), lines, true) : shortLinedBlock(lines);
}

/// The list of ingredients in the lines above the heading of the method.
Run listAboveMethod(const QList<TextLine>& lines)
{
    const Run run = ingredientRun(lines);
    return widened(run.size() > 0 ? run : blockAbove(lines, lines.size()), lines, false);
}

RecipeOutline withoutHeadings(const QList<TextLine>& lines)
{
    RecipeOutline result;
    const qsizetype firstTitle = lines.isEmpty() ? 0 : unheadedRecipe(lines.mid(1)) + 1;
    // Two titles with lists of their own: only the first one's lines are looked at.
    const bool several = firstTitle < lines.size() && ingredientRun(lines.first(firstTitle)).size() > 0;
    const QList<TextLine> own = several ? lines.first(firstTitle) : lines;
    result.hasMoreRecipes = several;
    const Run run = unheadedList(own);
    if (run.size() == 0) {
        result.head = own;
        return result;
    }
    result.head = own.first(run.begin);
    result.ingredients = own.sliced(run.begin);
    const qsizetype numbered = firstNumberedStep(result.ingredients);
    const qsizetype split =
        numbered > 0 && numbered < result.ingredients.size() ? numbered : directionsBegin(result.ingredients);
    result.directions = result.ingredients.sliced(split);
    result.ingredients = result.ingredients.first(split);
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

/// The sections of the first recipe; what follows its end is cut off.
RecipeOutline firstRecipe(const QList<Section>& all)
{
    RecipeOutline result;
    for (qsizetype i = 0; i < all.size(); ++i) {
        const bool complete = !result.ingredients.isEmpty() && !result.directions.isEmpty();
        if (complete && all[i].kind == HeadingKind::Ingredients && !all[i].lines.isEmpty()) {
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
        addSection(result, section);
    }
    return result;
}

} // namespace

bool isLargeType(const TextLine& line)
{
    return line.relativeHeight >= largeType;
}

Heading headingOf(const QString& line)
{
    static const QRegularExpression spaced(QStringLiteral("^(?:\\p{L} ){3,}\\p{L}:?$"),
                                           QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression ornament(QStringLiteral("^[^\\p{L}]+"),
                                             QRegularExpression::UseUnicodePropertiesOption);
    constexpr qsizetype longestHeading = 48;
    QString text = spaced.match(line).hasMatch() ? QString(line).remove(u' ') : line;
    if (LineShape::startsWithAmount(text) || LineShape::hasBullet(text)) {
        return {};
    }
    text.remove(ornament);
    while (!text.isEmpty() && !text.back().isLetterOrNumber() && text.back() != u')' && text.back() != u'.') {
        text.chop(1);
    }
    struct Table
    {
        HeadingKind kind;
        const QStringList& words;
    };
    for (const Table& table : {Table{HeadingKind::Ingredients, RecipeWords::ingredientHeadings()},
                               Table{HeadingKind::Directions, RecipeWords::directionHeadings()},
                               Table{HeadingKind::Other, RecipeWords::otherHeadings()}}) {
        for (const QString& word : table.words) {
            if (!text.startsWith(word, Qt::CaseInsensitive)) {
                continue;
            }
            const bool fact = RecipeFacts::isFact(line);
            const QString rest = text.mid(word.size()).trimmed();
            // "Zubereitung: Den Ofen heizen": the section begins on the heading's own line.
            if (rest.startsWith(u':') && !fact) {
                return {table.kind, rest.mid(1).trimmed()};
            }
            if (!fact && text.size() <= longestHeading &&
                RecipeTextParser::isHeading(text.toLower(), {word})) {
                return {table.kind, rest.startsWith(u'(') || RecipeFacts::isFact(rest) ? rest : QString()};
            }
        }
    }
    return {};
}

namespace {

/// Where a numbered method has ended: text that stands apart behind its last step. On a page of two columns
/// this is what spans them, read last though it may stand above.
qsizetype methodEnd(const QList<TextLine>& lines)
{
    int expected = 1;
    qsizetype last = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto number = LineShape::numbered(lines[i].text);
        if (number && number->number == expected) {
            ++expected;
            last = i;
        }
    }
    if (expected <= 2) {
        return lines.size();
    }
    for (qsizetype i = last + 1; i < lines.size(); ++i) {
        if (lines[i].startsBlock && lines[i].page == lines[i - 1].page &&
            LineShape::endsSentence(lines[i - 1].text) && !LineShape::numbered(lines[i].text)) {
            return i;
        }
    }
    return lines.size();
}

} // namespace

RecipeOutline outline(const QList<TextLine>& lines)
{
    const QList<Section> all = sections(lines);
    const auto has = [&](HeadingKind kind) {
        return std::any_of(all.begin(), all.end(),
                           [&](const Section& s) { return s.kind == kind && !s.lines.isEmpty(); });
    };
    if (!has(HeadingKind::Ingredients) && !has(HeadingKind::Directions)) {
        return withoutHeadings(lines);
    }
    RecipeOutline result = firstRecipe(all);
    if (result.directions.isEmpty()) {
        const qsizetype split = directionsBegin(result.ingredients);
        result.directions = result.ingredients.sliced(split);
        result.ingredients = result.ingredients.first(split);
        const qsizetype next = unheadedRecipe(result.directions);
        result.hasMoreRecipes = result.hasMoreRecipes || next < result.directions.size();
        result.directions = result.directions.first(next);
    } else if (result.ingredients.isEmpty()) {
        const Run run = listAboveMethod(result.head);
        result.ingredients = result.head.sliced(run.begin, run.size());
        result.head.remove(run.begin, run.size());
    } else {
        const qsizetype end = listEnd(result.ingredients);
        result.head += result.ingredients.sliced(end);
        result.ingredients = result.ingredients.first(end);
    }
    const qsizetype end = methodEnd(result.directions);
    result.head += result.directions.sliced(end);
    result.directions = result.directions.first(end);
    return result;
}

} // namespace ovrin
