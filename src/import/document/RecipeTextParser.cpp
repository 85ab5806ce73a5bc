#include "import/document/RecipeTextParser.h"

#include "import/document/DraftDoubts.h"
#include "import/document/DrawnOrder.h"
#include "import/document/LineEndHyphens.h"
#include "import/document/LineShape.h"
#include "import/document/PageColumns.h"
#include "import/document/PageFurniture.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeHead.h"
#include "import/document/RecipeItems.h"
#include "import/document/RecipeOutline.h"
#include "import/document/RecipeWords.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

constexpr qsizetype longestYield = 60;
/// Twelve pages of small print. Of a document with more lines the rest is not looked at.
constexpr qsizetype mostLines = 3000;
/// How much longer than its heading word a heading may be.
constexpr qsizetype longestAddition = 13;

QRegularExpression pattern(const QString& text)
{
    return QRegularExpression(text, QRegularExpression::UseUnicodePropertiesOption);
}

QString trimmedOf(QStringView text, QStringView characters)
{
    while (!text.isEmpty() && characters.contains(text.front())) {
        text = text.mid(1);
    }
    while (!text.isEmpty() && characters.contains(text.back())) {
        text.chop(1);
    }
    return text.toString();
}

/// Text recognition reads a zero beside a digit or before a metric unit as the letter o.
void repairZeros(QList<TextLine>& lines)
{
    static const QRegularExpression letter =
        pattern(QStringLiteral("(?<=\\d)[oO](?=\\d|ml\\b|g\\b|kg\\b|l\\b|cl\\b|\\s?[gG]rams?\\b)"));
    for (TextLine& line : lines) {
        line.text.replace(letter, QStringLiteral("0"));
    }
}

/// "① Peel" is "1. Peel".
void spellCircledNumbers(QList<TextLine>& lines)
{
    struct Circles
    {
        char16_t first;
        int count;
    };
    for (TextLine& line : lines) {
        const char16_t sign = line.text.isEmpty() ? u' ' : line.text.front().unicode();
        for (const Circles circles : {Circles{u'①', 20}, Circles{u'❶', 10}, Circles{u'➀', 10},
                                      Circles{u'➊', 10}, Circles{u'⓵', 10}}) {
            if (sign >= circles.first && sign < circles.first + circles.count) {
                line.text =
                    QStringLiteral("%1. %2").arg(sign - circles.first + 1).arg(line.text.mid(1).trimmed());
            }
        }
    }
}

/// A large first letter stands apart from its word: "H eat the oven". A vowel may be a word of its own.
void joinDropCaps(QList<TextLine>& lines)
{
    static const QRegularExpression letter =
        pattern(QStringLiteral("^(?![AEIOUYÀÁÉÈÍÓÚÅÄÖØ])(\\p{Lu}) (?=\\p{Ll}{2})"));
    constexpr qsizetype leastText = 24;
    for (TextLine& line : lines) {
        if (line.text.size() >= leastText && line.text[1] == u' ') {
            line.text.replace(letter, QStringLiteral("\\1"));
        }
    }
}

/// "(Serves 6)" without its brackets.
QString withoutBrackets(const QString& text)
{
    return text.startsWith(u'(') && text.endsWith(u')') ? text.sliced(1).chopped(1) : text;
}

/// Takes what only the heading of the ingredients can have left of itself off its list: the end of its
/// brackets ("people)") and labels without a value.
void takeRestsOfHeading(QList<TextLine>& list)
{
    const QString first = list.isEmpty() ? QString() : list.first().text;
    const QString rest = first.endsWith(u')') ? first.chopped(1) : QString();
    if (LineShape::isCount(rest) || (!rest.isEmpty() && RecipeFacts::isYield(QStringLiteral("4 ") + rest)) ||
        RecipeFacts::isBareLabel(first)) {
        list.removeFirst();
    }
    // "oil, plus more for / serving" ends in none.
    list.removeIf([](const TextLine& line) {
        return line.text.front().isUpper() && RecipeFacts::isBareLabel(line.text);
    });
}

/// Takes off the ends of the list what names the recipe or the site, unless by one word: "Oats" may well
/// need oats.
void takeNames(QList<TextLine>& list, const QString& title, const QStringList& siteNames)
{
    const auto isName = [&](const TextLine& line) {
        const QString name = LineShape::lettersOf(line.text);
        return LineShape::withoutBullet(line.text).contains(u' ') &&
               (name == LineShape::lettersOf(title) || siteNames.contains(name));
    };
    constexpr qsizetype leastEntries = 2;
    if (list.size() > leastEntries && isName(list.last())) {
        list.removeLast();
    }
    if (list.size() > leastEntries && isName(list.first())) {
        list.removeFirst();
    }
}

/// Facts that stand inside a list rather than above it ("Serves 4" under the heading of the ingredients).
/// Among directions only a label with a colon tells them from the words of a sentence.
void takeFacts(QList<TextLine>& lines, RecipeDraft& draft, bool onlyLabelled)
{
    constexpr qsizetype longestClosing = 30;
    RecipeFacts facts(draft);
    // "Serves 4." below the last step.
    if (onlyLabelled && lines.size() > 1 && lines.last().text.size() <= longestClosing &&
        RecipeFacts::isYield(lines.last().text)) {
        facts.read(lines.takeLast().text);
    }
    QList<TextLine> rest;
    bool startsBlock = false;
    bool isOpen = false;
    for (const TextLine& line : lines) {
        const bool isLabelled = line.text.contains(u':') && !LineShape::looksLikeStep(line.text);
        const bool isValue = std::exchange(isOpen, false) && RecipeFacts::isDuration(line.text);
        const QString text = onlyLabelled ? line.text : withoutBrackets(line.text);
        if (isValue || (RecipeFacts::isFact(text) && (isLabelled || !onlyLabelled)) ||
            RecipeFacts::areSeveral(text)) {
            facts.read(text);
            isOpen = line.text.endsWith(u':');
            startsBlock = true;
            continue;
        }
        rest.append(line);
        rest.last().startsBlock = line.startsBlock || std::exchange(startsBlock, false);
    }
    lines = rest;
}

/// What an order of the lines makes of them.
struct Reading
{
    RecipeTextParser::Result result;
    double doubts = 0;
};

Reading readingOf(QList<TextLine> lines, const QStringList& siteNames)
{
    repairZeros(lines);
    spellCircledNumbers(lines);
    joinDropCaps(lines);
    lines = LineEndHyphens::told(std::move(lines));
    RecipeOutline parts = outline(lines);
    Reading reading;
    RecipeDraft& draft = reading.result.draft;
    reading.result.hasMoreRecipes = parts.hasMoreRecipes;
    readHead(parts, siteNames, draft);
    takeFacts(parts.ingredients, draft, false);
    takeRestsOfHeading(parts.ingredients);
    takeNames(parts.ingredients, draft.title, siteNames);
    takeFacts(parts.directions, draft, true);
    draft.ingredients =
        RecipeItems::runIn(parts.ingredients).value_or(RecipeItems::ingredients(parts.ingredients));
    draft.steps = RecipeItems::steps(parts.directions);
    reading.doubts = doubtsAbout(draft, parts, lines);
    return reading;
}

bool isSameText(const QList<TextLine>& a, const QList<TextLine>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TextLine& x, const TextLine& y) { return x.text == y.text; });
}

} // namespace

RecipeTextParser::Result RecipeTextParser::parseFirst(const QList<TextLine>& lines)
{
    const QList<TextLine> considered = lines.first(std::min(lines.size(), mostLines));
    const QList<TextLine> kept = PageFurniture::removed(considered);
    const QStringList siteNames = PageFurniture::siteNames(considered);
    const QList<TextLine> byPlace = PageColumns::regrouped(kept);
    Reading best = readingOf(byPlace, siteNames);
    if (DrawnOrder::isKnown(kept)) {
        // Where nothing speaks for either, pages are drawn as they are written.
        constexpr double trust = 0.7;
        const QList<TextLine> asDrawn = DrawnOrder::regrouped(kept);
        if (!isSameText(byPlace, asDrawn)) {
            Reading drawn = readingOf(asDrawn, siteNames);
            best = drawn.doubts < best.doubts + trust ? std::move(drawn) : std::move(best);
        }
    }
    return best.result;
}

RecipeDraft RecipeTextParser::parse(const QList<TextLine>& lines)
{
    return parseFirst(lines).draft;
}

QStringList RecipeTextParser::paragraphs(const QList<TextLine>& lines)
{
    QStringList paragraphs;
    bool ended = true;
    QString previous;
    for (const TextLine& line : lines) {
        const QString text = line.text.trimmed();
        if (text.isEmpty()) {
            ended = true;
            continue;
        }
        // Inside a block only a capital or a sign begins a new paragraph; a list's lines thus stay apart.
        if (ended || startsParagraph(text, previous, line.startsBlock || !text.front().isLower())) {
            paragraphs.append(text);
        } else {
            paragraphs.last() = RecipeItems::joined(paragraphs.last(), text);
        }
        previous = text;
        ended = false;
    }
    return paragraphs;
}

bool RecipeTextParser::isStatusBar(const QString& line)
{
    return PageFurniture::isStatusBar(line);
}

bool RecipeTextParser::metadata(const QString& line, RecipeDraft& draft)
{
    static const QRegularExpression yield =
        pattern(QStringLiteral("(?i)^(?:yield|yields|servings|serves|makes)\\s*:?\\s*(.+)$"));
    static const QRegularExpression time =
        pattern(QStringLiteral("(?i)(prep|cook|total|active)\\s*time\\s*:?\\s*([0-9][^,;]*)"));
    const auto yieldMatch = yield.match(line);
    if (yieldMatch.hasMatch() && yieldMatch.captured(1).size() < longestYield) {
        draft.yield = yieldMatch.captured(1);
        return true;
    }
    bool found = false;
    auto matches = time.globalMatch(line);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString label = match.captured(1).toLower();
        auto& field = label == u"prep"    ? draft.prepMinutes
                      : label == u"total" ? draft.totalMinutes
                                          : draft.cookMinutes;
        field = minutes(match.captured(2));
        found = true;
    }
    return found;
}

std::optional<qint64> RecipeTextParser::minutes(const QString& text)
{
    static const QRegularExpression amount =
        pattern(QStringLiteral("(?i)(\\d+)\\s*(hours?|hrs?|h|minutes?|mins?|m)\\b"));
    constexpr qint64 largest = std::numeric_limits<qint64>::max() / 120;
    qint64 sum = 0;
    auto matches = amount.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        // A number that does not fit reads as 0.
        const qint64 number = match.captured(1).toLongLong();
        const bool hours = match.captured(2).startsWith(u'h', Qt::CaseInsensitive);
        sum = std::min(sum + std::min(number, largest) * (hours ? 60 : 1), largest);
    }
    return sum < 1 ? std::nullopt : std::optional(sum);
}

bool RecipeTextParser::startsParagraph(const QString& line, const QString& previous, bool mayBegin)
{
    if (!mayBegin) {
        return false;
    }
    const QString text = trimmedOf(line, u" \t");
    if (!text.isEmpty() && text.front().isLower()) {
        return false;
    }
    if (!previous.isEmpty() && QStringView(u",;(–—-&").contains(previous.back())) {
        return false;
    }
    return !RecipeWords::connectors().contains(previous.section(u' ', -1).toLower());
}

bool RecipeTextParser::isHeading(const QString& line, const QStringList& words)
{
    const QString text = trimmedOf(line, u": ");
    return std::any_of(words.begin(), words.end(), [&](const QString& word) {
        if (text == word) {
            return true;
        }
        return text.startsWith(word + u' ') && text.size() < word.size() + longestAddition &&
               !LineShape::startsWithAmount(text.mid(word.size() + 1));
    });
}

} // namespace ovrin
