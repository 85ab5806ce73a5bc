#include "import/document/LineShape.h"

#include "import/document/RecipeWords.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>

namespace ovrin {

namespace {

QRegularExpression pattern(const char16_t* text, bool caseless = false)
{
    return QRegularExpression(
        QString::fromUtf16(text),
        QRegularExpression::UseUnicodePropertiesOption |
            (caseless ? QRegularExpression::CaseInsensitiveOption : QRegularExpression::NoPatternOption));
}

QString word(QStringView raw)
{
    while (!raw.isEmpty() && !raw.back().isLetterOrNumber()) {
        raw.chop(1);
    }
    while (!raw.isEmpty() && !raw.front().isLetterOrNumber()) {
        raw = raw.mid(1);
    }
    return raw.toString().toLower();
}

QStringList words(const QString& text)
{
    return text.split(u' ', Qt::SkipEmptyParts);
}

/// "200 g", "2 EL", "1½ cups": the word after the leading amount is a unit.
bool hasUnitAfterAmount(const QString& text)
{
    static const QRegularExpression amount = pattern(
        u"^(?:\\d[\\d.,/\\s–-]*|[½⅓⅔¼¾⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚])+[½⅓⅔¼¾⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚]?\\s*(?:\\([^)]*\\)\\s*)?([\\p{L}]+)");
    const auto match = amount.match(text);
    return match.hasMatch() && RecipeWords::units().contains(match.captured(1).toLower());
}

/// "Flour: 200 g", "Sugar (1 cup)", "flour, 2 cups", "Milk: 250 ml | 1 cup".
bool endsWithAmount(const QString& text)
{
    static const QRegularExpression amount =
        pattern(u"(?:[:(–,-]|\\s{2,}|\\.{3,})\\s*(?:[\\d½⅓⅔¼¾⅛⅜⅝⅞][\\d\\s.,½⅓⅔¼¾⅛⅜⅝⅞–-]*\\s*\\p{L}{0,12}\\.?"
                u"\\s?[|/(]\\s?)?"
                u"[\\d½⅓⅔¼¾⅛⅜⅝⅞][\\d\\s.,/½⅓⅔¼¾⅛⅜⅝⅞–-]*\\s*[\\p{L}]{0,12}\\.?\\)?$");
    return amount.match(text).hasMatch();
}

/// "Half a pound of", "A quarter of a pound of", "Two table-spoonfuls of", as older books measure.
bool spelledAmount(const QString& text)
{
    static const QRegularExpression amount =
        pattern(u"^(?:\\p{L}+ ){0,2}(?:half|quarter|third|dozen|gills?|wine-?glass(?:es|fuls?)?|"
                u"(?:table|tea|dessert|salt)?-?spoons?(?:fuls?)?|(?:tea-?)?cup(?:s|fuls?)|ounces?|pounds?|"
                u"quarts?|pints?)(?: an?| of an?| the)?(?: (?:pound|ounce|pint|quart|gill|dozen|cup))?(?: "
                u"of)? \\p{L}",
                true);
    return amount.match(text).hasMatch();
}

bool hasAside(const QString& lower)
{
    static const QRegularExpression aside = pattern(
        u"to taste|optional|for (?:serving|garnish|frying|dusting|greasing|brushing|the pan)|to serve|as "
        u"needed|"
        u"nach (?:geschmack|belieben)|zum (?:garnieren|servieren|braten|bestreuen)|au goût|facultatif|"
        u"al gusto|opcional|q\\.\\s?b\\.|a piacere|naar smaak|a gosto|do smaku|efter smak|efter smag|"
        u"\\b(?:chopped|diced|minced|sliced|grated|melted|softened|peeled|crushed|drained|divided|beaten)$");
    return aside.match(lower).hasMatch();
}

/// The first word is one that directions begin with: "Cream the butter", but not "Cream or crème fraîche".
bool beginsWithVerb(const QStringList& parts)
{
    static const QSet<QString> objects{
        QStringLiteral("the"),      QStringLiteral("together"), QStringLiteral("butter"),
        QStringLiteral("sugar"),    QStringLiteral("in"),       QStringLiteral("until"),
        QStringLiteral("softened"), QStringLiteral("your"),     QStringLiteral("shortening")};
    const QString first = word(parts.value(0));
    return RecipeWords::cookingVerbs().contains(first) &&
           (first != u"cream" || objects.contains(word(parts.value(1))));
}

bool isDurationOrTemperature(const QString& text)
{
    static const QRegularExpression measure = pattern(
        u"^\\d+(?:\\s*[–-]\\s*\\d+)?\\s*(?:minutes?|mins?|hours?|hrs?|minuten|stunden?|°|degrees)", true);
    return measure.match(text).hasMatch();
}

/// A full stop inside, followed by a capital: more than one sentence.
bool holdsSentenceBoundary(const QString& text)
{
    static const QRegularExpression boundary = pattern(u"[\\p{Ll}\\d°)]{2,}[.!?]\\s+\\p{Lu}\\p{Ll}");
    return boundary.match(text).hasMatch();
}

} // namespace

std::optional<LineShape::Numbered> LineShape::numbered(const QString& text)
{
    static const QRegularExpression step =
        pattern(u"^(?:step|schritt|étape|etape|paso|passo|stap|krok|steg|trin)\\s*(\\d{1,2})\\b\\s*"
                u"(?:of\\s+\\d+|/\\s*\\d+)?\\s*[.:)–—-]?\\s*(.*)$",
                true);
    static const QRegularExpression listed = pattern(u"^[(]?(\\d{1,2})[.)]\\s*(?!\\d)(.*)$");
    static const QRegularExpression bare = pattern(u"^(\\d{1,2})(?:\\s+([(\"“]?\\p{Lu}.*))?$");
    for (const QRegularExpression& form : {step, listed, bare}) {
        const auto match = form.match(text);
        if (match.hasMatch()) {
            return Numbered{match.captured(1).toInt(), match.captured(2).trimmed()};
        }
    }
    static const QRegularExpression lettered = pattern(u"^[(]?([a-t])[)]\\s*(.*)$", true);
    const auto match = lettered.match(text);
    if (match.hasMatch()) {
        return Numbered{match.captured(1).toLower().front().unicode() - u'a' + 1,
                        match.captured(2).trimmed()};
    }
    return std::nullopt;
}

std::optional<LineShape::Numbered> LineShape::counted(const QString& text)
{
    static const QRegularExpression bare = pattern(u"^(\\d{1,2})\\s+([\\p{Ll}\\d(].*)$");
    const auto match = bare.match(text);
    return match.hasMatch() ? Numbered{match.captured(1).toInt(), match.captured(2)} : numbered(text);
}

bool LineShape::isBareNumber(const QString& text)
{
    static const QRegularExpression bare = pattern(u"^\\d{1,2}(?:\\s|$)");
    return bare.match(text).hasMatch();
}

bool LineShape::hasBullet(const QString& text)
{
    return withoutBullet(text).size() != text.size();
}

QString LineShape::withoutBullet(const QString& text)
{
    static const QRegularExpression bullet = pattern(
        u"^(?:[•·●○◦‣▪▫■□▢☐☑✓✔➢►◆◇❏❑\\x{F0A7}\\x{F0B7}\\x{25E6}\\x{2B1C}]\\s*|[-*–—]\\s+|o\\s+(?=\\d))");
    QString rest = text;
    return rest.remove(bullet);
}

bool LineShape::startsWithAmount(const QString& text)
{
    static const QRegularExpression amount = pattern(u"^[•\\-*▢☐]?\\s*(?:\\d|[¼½¾⅓⅔⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚])");
    return amount.match(text).hasMatch();
}

bool LineShape::isBareAmount(const QString& text)
{
    static const QRegularExpression amount =
        pattern(u"^[\\d½¼¾⅓⅔⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚][\\d\\s.,/⁄½¼¾⅓⅔⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚–-]*(\\p{L}{0,12}\\.?)$");
    const auto match = amount.match(text);
    return match.hasMatch() && (match.captured(1).isEmpty() || hasUnitAfterAmount(text));
}

bool LineShape::startsWithMeasure(const QString& text)
{
    return startsWithAmount(text) && hasUnitAfterAmount(withoutBullet(text));
}

bool LineShape::endsSentence(const QString& text)
{
    static const QRegularExpression end = pattern(u"[.!?…:][)\\]\"'”’»]*$");
    return end.match(text).hasMatch();
}

bool LineShape::isAllCapitals(const QString& text)
{
    const bool hasLetters =
        std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLetter(); }) >= 3;
    return hasLetters && text.toUpper() == text;
}

double LineShape::ingredientLikeness(const QString& raw)
{
    const QString text = withoutBullet(raw);
    const QStringList parts = words(text);
    if (parts.isEmpty()) {
        return -1;
    }
    double score = hasBullet(raw) ? 0.6 : 0;
    bool spelled = false;
    if (isDurationOrTemperature(text)) {
        score -= 1;
    } else if (startsWithAmount(text)) {
        score += hasUnitAfterAmount(text) ? 2.5 : 1.5;
        const std::optional<Numbered> step = numbered(text);
        if (step && !isBareNumber(text) && !startsWithAmount(step->rest)) {
            score -= 2;
        }
    } else if (RecipeWords::amountWords().contains(word(parts.first()))) {
        score += 0.7;
        score += parts.size() > 1 && RecipeWords::units().contains(word(parts[1])) ? 1 : 0;
        spelled = spelledAmount(text);
        score += spelled ? 1.8 : 0;
    }
    score += endsWithAmount(text) ? 1.5 : 0;
    score += hasAside(text.toLower()) ? 0.7 : 0;
    score += parts.size() <= 6 ? 0.3 : 0;
    score -= text.size() > 110 ? 2 : 0;
    score -= parts.size() > 6 && endsSentence(text) && !spelled ? 1.5 : 0;
    score -= holdsSentenceBoundary(text) ? 2 : 0;
    score -= beginsWithVerb(parts) && parts.size() > 3 ? 1 : 0;
    return score;
}

bool LineShape::isProse(const QString& raw)
{
    const QString text = withoutBullet(raw);
    const qsizetype count = words(text).size();
    if (holdsSentenceBoundary(text)) {
        return true;
    }
    return !startsWithAmount(text) &&
           ((count >= 6 && endsSentence(text)) || (count >= 9 && text.size() >= 45));
}

bool LineShape::looksLikeStep(const QString& raw)
{
    const QString text = withoutBullet(raw);
    const QStringList parts = words(text);
    if (parts.size() < 2 || !text.front().isUpper()) {
        return false;
    }
    const bool verb = beginsWithVerb(parts);
    return isProse(text) || (verb && (endsSentence(text) || parts.size() >= 5));
}

bool LineShape::startsWithVerb(const QString& raw)
{
    return beginsWithVerb(words(withoutBullet(raw)));
}

bool LineShape::hasAmountOrBullet(const QString& text)
{
    return startsWithAmount(text) || hasBullet(text);
}

bool LineShape::startsWithAmountWord(const QString& text)
{
    return RecipeWords::amountWords().contains(text.section(u' ', 0, 0).toLower());
}

bool LineShape::isCount(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

QString LineShape::lettersOf(const QString& text)
{
    QString letters;
    for (const QChar c : text) {
        if (c.isLetterOrNumber()) {
            letters += c.toLower();
        }
    }
    return letters;
}

double LineShape::estimatedWidth(const QString& text)
{
    static const QString narrow = QStringLiteral("iljtfrI.,:;'’|!()[]1 ");
    static const QString wide = QStringLiteral("mwMWOQGD@%—½¼¾⅓⅔⅛");
    double width = 0;
    for (const QChar c : text) {
        width += narrow.contains(c) ? 0.55 : wide.contains(c) ? 1.45 : c.isUpper() ? 1.25 : 1.0;
    }
    return width;
}

} // namespace ovrin
