#include "text/IngredientPhrases.h"

#include "text/Characters.h"
#include "text/PhraseMatcher.h"

#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <algorithm>

namespace ovrin::IngredientPhrases {

namespace {

using WordSet = QSet<QString>;

WordSet wordSet(const char* words)
{
    const QStringList list = QString::fromLatin1(words).split(u' ');
    return {list.begin(), list.end()};
}

/// Words that break a phrase because they measure.
const WordSet& units()
{
    static const WordSet set =
        wordSet("cup cups c tablespoon tablespoons tbsp tbsps tbs tbl teaspoon teaspoons tsp tsps ounce "
                "ounces oz fluid fl "
                "pound pounds lb lbs gram grams g kg kilogram kilograms ml milliliter milliliters millilitre "
                "millilitres l "
                "liter liters litre litres quart quarts qt pint pints pt gallon gallons pinch pinches dash "
                "dashes clove "
                "cloves can cans jar jars stick sticks sheet sheets piece pieces slice slices package "
                "packages pkg bunch "
                "bunches sprig sprigs head heads handful inch inches cm bag bags box boxes bottle bottles x");
    return set;
}

/// Words that break a phrase because they describe or join.
const WordSet& descriptors()
{
    static const WordSet set = wordSet("a an the of and or for to with into plus more about as needed taste "
                                       "in large medium small whole fresh "
                                       "freshly dried chopped minced diced sliced grated ground finely "
                                       "thinly roughly coarsely packed softened "
                                       "melted cold warm hot room temperature optional desired serving "
                                       "garnish good quality extra virgin white "
                                       "light dark heaping level dry boneless skinless peeled halved "
                                       "quartered hulled divided cut pieces see below "
                                       "recipe bottom");
    return set;
}

/// Words too common in directions to stand for an ingredient alone.
bool isIgnoredAlone(const QString& word)
{
    return word == QLatin1String("water") || word == QLatin1String("ice") || word == QLatin1String("oil");
}

/// The line without "(...)"; each is replaced by a space.
QString withoutParentheses(const QString& line)
{
    QString result;
    qsizetype copied = 0;
    for (qsizetype open = line.indexOf(u'('); open >= 0; open = line.indexOf(u'(', copied)) {
        const qsizetype close = line.indexOf(u')', open);
        if (close < 0)
            break;
        result.append(QStringView(line).sliced(copied, open - copied)).append(u' ');
        copied = close + 1;
    }
    return result.append(QStringView(line).sliced(copied));
}

/// Words are letters with the marks on them, apostrophes and hyphens, without those two at their ends.
QStringList words(QStringView text)
{
    QStringList result;
    const auto append = [&result](QStringView word) {
        const auto isJoint = [](QChar c) { return c == u'\'' || c == u'-'; };
        while (!word.isEmpty() && isJoint(word.front()))
            word = word.sliced(1);
        while (!word.isEmpty() && isJoint(word.back()))
            word.chop(1);
        if (!word.isEmpty())
            result << word.toString();
    };
    qsizetype start = 0;
    bool isAfterLetter = false;
    for (qsizetype i = 0; i < text.size();) {
        const auto [c, length] = Characters::at(text, i);
        isAfterLetter = QChar::isLetter(c) || (isAfterLetter && QChar::isMark(c));
        if (!isAfterLetter && c != U'\'' && c != U'-') {
            append(text.sliced(start, i - start));
            start = i + length;
        }
        i += length;
    }
    append(text.sliced(start));
    return result;
}

/// Visits the phrases of words that stand next to each other; false when the visitor has had enough.
bool visitRun(const QStringList& run, const std::function<bool(const QString&)>& visitor)
{
    // The shortest words have three letters, so with the spaces no phrase of more words is short enough.
    const qsizetype longest = std::min(run.size(), PhraseMatcher::maximumPhraseLength / 4 + 1);
    std::vector<qsizetype> ends{0};
    for (const QString& word : run)
        ends.push_back(ends.back() + word.size() + 1);
    for (qsizetype count = longest; count > 0; --count) {
        for (qsizetype start = 0; start + count <= run.size(); ++start) {
            if (ends.at(start + count) - ends.at(start) - 1 > PhraseMatcher::maximumPhraseLength)
                continue;
            const QString phrase = run.sliced(start, count).join(u' ');
            if (count == 1 && isIgnoredAlone(phrase))
                continue;
            if (!visitor(phrase))
                return false;
            const std::optional<QString> variant = numberVariant(phrase);
            if (variant && !visitor(*variant))
                return false;
        }
    }
    return true;
}

} // namespace

void visit(const QString& line, const std::function<bool(const QString&)>& visitor)
{
    QString text = withoutParentheses(line.toLower());
    if (const qsizetype comma = text.indexOf(u','); comma >= 0)
        text.truncate(comma);
    QStringList run;
    for (const QString& word : words(text)) {
        if (word.size() > 2 && !units().contains(word) && !descriptors().contains(word)) {
            run << word;
        } else {
            if (!visitRun(run, visitor))
                return;
            run.clear();
        }
    }
    visitRun(run, visitor);
}

std::optional<QString> numberVariant(const QString& phrase)
{
    const qsizetype lastWord = phrase.lastIndexOf(u' ') + 1;
    const auto endsIn = [word = QStringView(phrase).sliced(lastWord)](const char* ending) {
        return word.endsWith(QLatin1String(ending));
    };
    QString result = phrase;
    if (endsIn("ies")) {
        result.chop(3);
        result.append(u'y');
    } else if (endsIn("oes") || endsIn("ches") || endsIn("shes")) {
        result.chop(2);
    } else if (endsIn("s") && !endsIn("ss")) {
        result.chop(1);
    } else if (endsIn("y")) {
        result.chop(1);
        result.append(QLatin1String("ies"));
    } else {
        result.append(u's');
    }
    return result.size() - lastWord > 2 ? std::optional(result) : std::nullopt;
}

} // namespace ovrin::IngredientPhrases
