#include "import/document/IngredientSearch.h"

#include "import/document/LineFlow.h"
#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeWords.h"
#include "import/document/StepNumbers.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>
#include <functional>

namespace ovrin {

namespace {

constexpr double largeType = 1.25;
/// Half of what an unremarkable short line scores, so that such lines neither open nor end a list.
constexpr double likenessOfNothing = 0.15;
constexpr double certainIngredient = 1.4;
constexpr qsizetype longestPlainIngredient = 70;

/// "1.1 Apple cake", set larger than the text.
bool isNumberedHeading(const TextLine& line)
{
    static const QRegularExpression number(QStringLiteral("^\\d{1,2}\\.\\d{1,2}\\.?\\s+\\p{Lu}"),
                                           QRegularExpression::UseUnicodePropertiesOption);
    return line.relativeHeight > 1.1 && number.match(line.text).hasMatch();
}

double likenessOf(const TextLine& line, bool isStep)
{
    if (isNumberedHeading(line)) {
        return -2;
    }
    if (RecipeFacts::isFact(line.text)) {
        return -1.5;
    }
    double score = LineShape::ingredientLikeness(line.text) - likenessOfNothing;
    score -= isStep ? 1.2 : 0;
    score -= line.text.size() > 55 && !LineShape::startsWithAmount(line.text) ? 0.7 : 0;
    return std::clamp(score, -2.0, 2.0);
}

/// "Three eggs.", "A pinch of salt"
bool beginsWithCount(const QString& text)
{
    return text.front().isUpper() && text.count(u' ') < 9 && LineShape::startsWithAmountWord(text);
}

bool opensGroup(const QString& text)
{
    const QString lower = text.toLower();
    return text.endsWith(u':') ||
           std::any_of(RecipeWords::groupOpenings().begin(), RecipeWords::groupOpenings().end(),
                       [&](const QString& opening) { return lower.startsWith(opening); });
}

} // namespace

bool isLargeType(const TextLine& line)
{
    return line.relativeHeight >= largeType;
}

bool mayHaveJumped(const QList<TextLine>& lines, qsizetype i)
{
    return lines[i].place.isNull() || lines[i].place.top() < lines[i - 1].place.top() ||
           lines[i].place.left() > lines[i - 1].place.right();
}

bool looksLikeTitle(const TextLine& line)
{
    const QString& text = line.text;
    if (isNumberedHeading(line)) {
        return text.size() <= 90;
    }
    return text.size() >= 3 && text.size() <= 90 && !LineShape::startsWithAmount(text) &&
           !LineShape::hasBullet(text) && !LineShape::endsSentence(text) &&
           (isLargeType(line) || !LineShape::isProse(text)) && text.front().isUpper() &&
           !RecipeFacts::isFact(text);
}

IngredientSearch::IngredientSearch(const QList<TextLine>& lines)
    : m_lines(lines)
{
    m_likeness.reserve(static_cast<std::size_t>(lines.size()));
    m_isStep.reserve(static_cast<std::size_t>(lines.size()));
    for (const TextLine& line : lines) {
        m_isStep.push_back(LineShape::looksLikeStep(line.text));
        m_likeness.push_back(likenessOf(line, m_isStep.back()));
    }
    markNumberedSteps();
}

/// Bare numbers that count up in front of directions are no amounts, though they look it.
void IngredientSearch::markNumberedSteps()
{
    const std::vector<qsizetype> numbers = stepNumbers(m_lines);
    m_firstNumber = numbers.empty() ? m_lines.size() : numbers.front();
    m_isNumbered.assign(m_isStep.size(), false);
    for (const qsizetype i : numbers) {
        m_isStep[static_cast<std::size_t>(i)] = true;
        m_isNumbered[static_cast<std::size_t>(i)] = true;
        m_likeness[static_cast<std::size_t>(i)] = -1.5;
    }
}

bool IngredientSearch::isCertain(qsizetype i) const
{
    return likeness(i) + likenessOfNothing > certainIngredient;
}

bool IngredientSearch::mayBeListed(qsizetype i) const
{
    const TextLine& line = m_lines[i];
    return line.text.size() <= longestPlainIngredient && !LineShape::isProse(line.text) &&
           !isLargeType(line) && !RecipeFacts::isFact(line.text);
}

/// Whether line `i` is the rest of a sentence that fills the line before.
bool IngredientSearch::continuesText(qsizetype i) const
{
    constexpr qsizetype leastText = 40;
    return i > 0 && !m_lines[i].startsBlock && !isCertain(i) && m_lines[i - 1].text.size() >= leastText &&
           m_lines[i].columnRight > 0 && !LineFlow(m_lines.sliced(i - 1, 2)).hadRoom(1);
}

qsizetype IngredientSearch::blockEnd(qsizetype begin) const
{
    qsizetype end = begin + 1;
    while (end < m_lines.size() && !m_lines[end].startsBlock) {
        ++end;
    }
    return end;
}

/// The stretch of lines that is most like a list of ingredients.
LineRange IngredientSearch::run(qsizetype first) const
{
    LineRange best;
    double bestScore = 0;
    LineRange current;
    double score = 0;
    for (qsizetype i = first; i < m_lines.size(); ++i) {
        if (score <= 0) {
            current = {i, i};
            score = 0;
        }
        // No list goes on behind a numbered step.
        if (m_isNumbered[static_cast<std::size_t>(i)]) {
            score = 0;
            continue;
        }
        score += isLargeType(m_lines[i]) ? -2.5 : likeness(i);
        current.end = i + 1;
        if (score > bestScore) {
            best = current;
            bestScore = score;
        }
    }
    qsizetype certain = 0;
    for (qsizetype i = best.begin; i < best.end; ++i) {
        certain += isCertain(i) ? 1 : 0;
    }
    if (certain < 2) {
        return {};
    }
    // The last words of the introduction are short, as an ingredient is.
    while (!best.isEmpty() &&
           (continuesText(best.begin) || (!m_lines[best.begin].startsBlock && !isCertain(best.begin) &&
                                          LineShape::endsSentence(m_lines[best.begin].text) &&
                                          !beginsWithCount(m_lines[best.begin].text)))) {
        ++best.begin;
    }
    return withoutIntroduction(best);
}

/// `run` without a short text of its own block in front of it.
LineRange IngredientSearch::withoutIntroduction(LineRange run) const
{
    constexpr qsizetype longestIntroduction = 2;
    qsizetype apart = 0;
    for (qsizetype i = run.begin; i < run.end; ++i) {
        apart += m_lines[i].startsBlock ? 1 : 0;
    }
    const qsizetype end = blockEnd(run.begin);
    if (apart * 2 > run.size() || end >= run.end || end - run.begin > longestIntroduction ||
        opensGroup(m_lines[run.begin].text)) {
        return run;
    }
    for (qsizetype i = run.begin; i < end; ++i) {
        if (isCertain(i) || beginsWithCount(m_lines[i].text)) {
            return run;
        }
    }
    return {end, run.end};
}

qsizetype IngredientSearch::methodAbove(LineRange list) const
{
    if (m_firstNumber < list.begin) {
        return m_firstNumber;
    }
    if (std::any_of(m_isStep.begin() + static_cast<std::ptrdiff_t>(list.end), m_isStep.end(),
                    std::identity())) {
        return list.begin;
    }
    qsizetype first = list.begin;
    for (qsizetype i = list.begin - 1; i >= 0; --i) {
        first = isStep(i) && LineShape::startsWithVerb(m_lines[i].text) ? i : first;
    }
    return first;
}

bool IngredientSearch::hasNumberedSteps(qsizetype begin) const
{
    return std::any_of(m_isNumbered.begin() + static_cast<std::ptrdiff_t>(begin), m_isNumbered.end(),
                       std::identity());
}

bool IngredientSearch::hasSteps() const
{
    return std::any_of(m_isStep.begin(), m_isStep.end(), std::identity());
}

qsizetype IngredientSearch::listEnd() const
{
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (m_lines[i].startsBlock && mayHaveJumped(m_lines, i) && !LineShape::hasBullet(m_lines[i].text) &&
            LineShape::isProse(m_lines[i].text) && likeness(i) < -1 && run(i).isEmpty()) {
            return i;
        }
    }
    return m_lines.size();
}

/// The first line of its own behind a list that has a bullet in front of most of its lines.
qsizetype IngredientSearch::behindBullets(qsizetype begin) const
{
    qsizetype last = begin - 1;
    qsizetype bullets = 0;
    for (qsizetype i = begin; i < m_lines.size(); ++i) {
        if (LineShape::hasBullet(m_lines[i].text)) {
            last = i;
            ++bullets;
        }
    }
    if (bullets < 3 || bullets * 5 < (last + 1 - begin) * 3) {
        return m_lines.size();
    }
    for (qsizetype i = last + 1; i < m_lines.size(); ++i) {
        if (m_lines[i].startsBlock || isStep(i)) {
            return i;
        }
    }
    return m_lines.size();
}

/// The end of the block that begins at `begin`, where all its lines ended early, none of them as a direction
/// begins, and directions follow.
qsizetype IngredientSearch::behindShortLines(qsizetype begin) const
{
    constexpr qsizetype leastLines = 3;
    const qsizetype end = begin < m_lines.size() ? blockEnd(begin) : begin;
    if (end - begin < leastLines || end == m_lines.size() || !isStep(end) || m_lines[end].columnRight <= 0) {
        return m_lines.size();
    }
    const LineFlow flow(m_lines);
    for (qsizetype i = begin; i < end; ++i) {
        if (!flow.hadRoom(i + 1) || LineShape::startsWithVerb(m_lines[i].text)) {
            return m_lines.size();
        }
    }
    return end;
}

/// A block of directions behind the list, where blank space parts them.
qsizetype IngredientSearch::methodBlock(qsizetype begin) const
{
    qsizetype best = m_lines.size();
    double bestScore = 0;
    double score = 0;
    for (qsizetype i = begin; i < m_lines.size(); ++i) {
        if (i > begin && m_lines[i].startsBlock && score > bestScore) {
            qsizetype steps = 0;
            qsizetype certain = 0;
            const qsizetype end = blockEnd(i);
            for (qsizetype k = i; k < end; ++k) {
                steps += isStep(k) ? 1 : 0;
                certain += isCertain(k) ? 1 : 0;
            }
            if (steps > certain) {
                best = i;
                bestScore = score;
            }
        }
        // A direction at the list's foot, without a space above it: the blank space is not what parts them.
        if (best == m_lines.size() && isStep(i) && LineShape::startsWithVerb(m_lines[i].text)) {
            return best;
        }
        score += likeness(i);
    }
    return best;
}

qsizetype IngredientSearch::directionsBegin(qsizetype begin) const
{
    for (const qsizetype found : {firstNumberedStep(begin), m_firstNumber, behindBullets(begin),
                                  behindShortLines(begin), methodBlock(begin)}) {
        if (found > begin && found < m_lines.size()) {
            return found;
        }
    }
    qsizetype best = m_lines.size();
    double bestScore = -1e9;
    double score = 0;
    for (qsizetype i = begin; i < m_lines.size(); ++i) {
        const std::optional<LineShape::Numbered> number = LineShape::numbered(m_lines[i].text);
        const bool mayBegin = isStep(i) || m_lines[i].startsBlock || (number && number->number == 1);
        if (i > begin && mayBegin && score > bestScore) {
            bestScore = score;
            best = i;
        }
        score += likeness(i);
    }
    return score > bestScore ? m_lines.size() : best;
}

/// Whether line `i` is set off from the text around it by its type or by capitals, and names no group.
bool IngredientSearch::isSetOff(qsizetype i) const
{
    constexpr double largerType = 1.12;
    const TextLine& line = m_lines[i];
    return looksLikeTitle(line) && (line.startsBlock || i == 0) && !opensGroup(line.text) &&
           !LineShape::counted(line.text) &&
           (line.relativeHeight >= largerType || LineShape::isAllCapitals(line.text));
}

/// Whether line `i` looks as the first line does, which is set off as a title is.
bool IngredientSearch::isTwinOfFirst(qsizetype i) const
{
    constexpr double sameType = 0.04;
    const TextLine& line = m_lines[i];
    const TextLine& first = m_lines.first();
    return isSetOff(0) && isSetOff(i) && std::abs(line.relativeHeight - first.relativeHeight) < sameType &&
           LineShape::isAllCapitals(line.text) == LineShape::isAllCapitals(first.text);
}

qsizetype IngredientSearch::furtherRecipe(qsizetype begin) const
{
    constexpr qsizetype linesToItsList = 16;
    bool isMethodAbove = false;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const bool mayName =
            (isLargeType(m_lines[i]) && looksLikeTitle(m_lines[i])) || (isMethodAbove && isSetOff(i));
        isMethodAbove = isMethodAbove || isStep(i);
        if (i < begin || !mayName) {
            continue;
        }
        qsizetype certain = 0;
        for (qsizetype k = i + 1; k < std::min(m_lines.size(), i + linesToItsList); ++k) {
            certain += isCertain(k) ? 1 : 0;
        }
        if (certain >= 3 || isTwinOfFirst(i)) {
            return i;
        }
    }
    return m_lines.size();
}

/// The first line of the method, where it is numbered.
qsizetype IngredientSearch::firstNumberedStep(qsizetype begin) const
{
    qsizetype first = m_lines.size();
    for (qsizetype i = begin; i < m_lines.size(); ++i) {
        const auto number = LineShape::numbered(m_lines[i].text);
        if (!number || LineShape::isBareNumber(m_lines[i].text)) {
            continue;
        }
        if (number->number == 2 && first < i) {
            return first;
        }
        if (number->number == 1 && first == m_lines.size() && !LineShape::startsWithAmount(number->rest)) {
            first = i;
        }
    }
    return m_lines.size();
}

/// A block of lines that all end before their column does, above a block of running text.
LineRange IngredientSearch::shortLinedBlock() const
{
    constexpr qsizetype leastLines = 3;
    const LineFlow flow(m_lines);
    for (qsizetype begin = 0; begin < m_lines.size();) {
        const qsizetype end = blockEnd(begin);
        qsizetype listed = 0;
        for (qsizetype i = begin; i < end; ++i) {
            const bool endedEarly = m_lines[i].columnRight > 0 && (i + 1 == end || flow.hadRoom(i + 1)) &&
                                    m_lines[i].text.size() <= longestPlainIngredient &&
                                    !isLargeType(m_lines[i]) && !RecipeFacts::isFact(m_lines[i].text);
            const bool isVerb = LineShape::startsWithVerb(m_lines[i].text);
            listed += (endedEarly && !isVerb) || (mayBeListed(i) && !isStep(i)) ? 1 : 0;
        }
        const bool stepsFollow =
            std::any_of(m_isStep.begin() + static_cast<std::ptrdiff_t>(end), m_isStep.end(), std::identity());
        if (end < m_lines.size() && end - begin >= leastLines && listed * 10 >= (end - begin) * 8 &&
            stepsFollow) {
            return {begin, end};
        }
        begin = end;
    }
    return {};
}

/// A column of short lines beside another one with the directions.
LineRange IngredientSearch::shortLinedColumn() const
{
    constexpr qsizetype leastLines = 3;
    const LineFlow flow(m_lines);
    const auto begins = [&](qsizetype i) {
        return i == m_lines.size() || m_lines[i].page != m_lines[i - 1].page || mayHaveJumped(m_lines, i);
    };
    for (qsizetype begin = 0; begin < m_lines.size();) {
        qsizetype end = begin + 1;
        while (!begins(end)) {
            ++end;
        }
        qsizetype first = begin;
        for (qsizetype i = begin; i < end; ++i) {
            first = isLargeType(m_lines[i]) || RecipeFacts::isFact(m_lines[i].text) ? i + 1 : first;
        }
        qsizetype listed = 0;
        bool isMethod = false;
        for (qsizetype i = first; i < end; ++i) {
            isMethod = isMethod || m_isNumbered[static_cast<std::size_t>(i)];
            const bool endedEarly = i + 1 == end || flow.hadRoom(i + 1);
            // Beside a method that is numbered, what is not is the list, however narrow its column.
            const bool mayBe = endedEarly || (hasNumberedSteps() && mayBeListed(i));
            listed += mayBe && !isStep(i) && !LineShape::startsWithVerb(m_lines[i].text) ? 1 : 0;
        }
        const bool isBeside = m_lines[begin].columnRight > 0 &&
                              ((begin > 0 && m_lines[begin].page == m_lines[begin - 1].page) ||
                               (end < m_lines.size() && m_lines[end].page == m_lines[end - 1].page));
        if (isBeside && !isMethod && end - first >= leastLines && end - first < m_lines.size() &&
            listed * 2 >= end - first) {
            return {first, end};
        }
        begin = end;
    }
    return {};
}

/// Short lines, each of which ended early, right above the first of several directions.
LineRange IngredientSearch::shortLinesAboveSteps() const
{
    constexpr qsizetype leastLines = 3;
    const LineFlow flow(m_lines);
    // In whatever type, the first line names the recipe.
    qsizetype begin = 1;
    for (qsizetype i = 1; i < m_lines.size(); ++i) {
        if (isStep(i)) {
            const auto steps =
                std::count(m_isStep.begin() + static_cast<std::ptrdiff_t>(i), m_isStep.end(), true);
            if (i - begin >= leastLines && steps > 1) {
                return {begin, i};
            }
            begin = i + 1;
        } else if (!mayBeListed(i) || (i + 1 < m_lines.size() && !flow.hadRoom(i + 1)) || continuesText(i)) {
            begin = i + 1;
        }
    }
    return {};
}

/// The block of mostly short lines that ends right before line `end`; empty when it holds other text.
LineRange IngredientSearch::blockAbove(qsizetype end) const
{
    qsizetype begin = end;
    while (begin > 0 && (begin == end || !m_lines[begin].startsBlock)) {
        --begin;
    }
    qsizetype listed = 0;
    for (qsizetype i = begin; i < end; ++i) {
        listed += mayBeListed(i) ? 1 : 0;
    }
    return {listed * 10 >= (end - begin) * 6 ? begin : end, end};
}

/// `block` without the title and the introduction that it begins with.
LineRange IngredientSearch::withoutHead(LineRange block) const
{
    constexpr qsizetype leastLines = 2;
    if (block.isEmpty() || !isLargeType(m_lines[block.begin])) {
        return block;
    }
    qsizetype begin = block.end;
    while (begin > block.begin && mayBeListed(begin - 1)) {
        --begin;
    }
    // The last words of the introduction.
    while (begin < block.end && LineShape::endsSentence(m_lines[begin].text)) {
        ++begin;
    }
    return block.end - begin < leastLines ? block : LineRange{begin, block.end};
}

/// `run` with the plain short lines around it: an ingredient without an amount looks like nothing in
/// particular. Blocks are left behind only where the list was not found by its amounts.
LineRange IngredientSearch::widened(LineRange run, bool acrossBlocks) const
{
    while (run.begin > 0 && mayBeListed(run.begin - 1) && !continuesText(run.begin - 1) &&
           (acrossBlocks || (!run.isEmpty() && !m_lines[run.begin].startsBlock))) {
        --run.begin;
    }
    while (!run.isEmpty() && run.end < m_lines.size() && mayBeListed(run.end) &&
           !m_lines[run.end].startsBlock && !isStep(run.end)) {
        ++run.end;
    }
    return run;
}

LineRange IngredientSearch::list() const
{
    const LineRange found = run(0);
    if (!found.isEmpty()) {
        return widened(found, false);
    }
    const LineRange column = hasSteps() ? shortLinedColumn() : LineRange();
    if (!column.isEmpty()) {
        return column;
    }
    const qsizetype step = firstNumberedStep(0);
    if (step < m_lines.size()) {
        return widened(blockAbove(step), true);
    }
    const LineRange block = shortLinedBlock();
    return block.isEmpty() ? shortLinesAboveSteps() : block;
}

/// `block` with the blocks of short lines in the columns to its left, of a list that has no amounts.
LineRange IngredientSearch::withColumnsBeside(LineRange block) const
{
    while (!block.isEmpty() && block.begin > 0 && mayHaveJumped(m_lines, block.begin) &&
           m_lines[block.begin].columnRight > 0) {
        const LineRange left = blockAbove(block.begin);
        const double step =
            left.isEmpty() ? 1 : m_lines[left.begin].place.top() - m_lines[block.begin].place.top();
        if (left.isEmpty() || m_lines[left.begin].page != m_lines[block.begin].page ||
            std::abs(step) > m_lines[block.begin].place.height()) {
            break;
        }
        block.begin = left.begin;
    }
    return block;
}

LineRange IngredientSearch::listAboveMethod() const
{
    const LineRange found = run(0);
    return widened(found.isEmpty() ? withColumnsBeside(withoutHead(blockAbove(m_lines.size()))) : found,
                   false);
}

} // namespace ovrin
