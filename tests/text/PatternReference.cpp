#include "text/PatternReference.h"

#include "text/IngredientPhrases.h"
#include "text/IngredientScaler.h"
#include "text/WhiteSpace.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>

namespace ovrin::PatternReference {

namespace {

const QString amount = QStringLiteral(
    "(?:\\d+\\s+\\d+/\\d+|\\d+\\s*[¼½¾⅓⅔⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚]|\\d+/\\d+|\\d+(?:\\.\\d+)?|[¼½¾⅓⅔⅛⅜⅝⅞⅕⅖⅗⅘⅙⅚])");

QRegularExpressionMatch leading(const QString& line)
{
    static const QRegularExpression pattern =
        compiled(QStringLiteral("^\\s*(%1)(?:(\\s*(?:-|–|to)\\s*)(%1))?").arg(amount), false);
    return pattern.match(line);
}

/// The value of a group's digits; nothing for digits that are not ASCII and for what is too large.
std::optional<qint64> integer(const QString& digits)
{
    bool isNumber = false;
    const qint64 value = digits.toLongLong(&isNumber);
    const bool isAscii = std::all_of(digits.begin(), digits.end(), [](QChar c) { return c < QChar(0x80); });
    return isNumber && isAscii ? std::optional(value) : std::nullopt;
}

std::optional<qint64> timerSeconds(const QRegularExpressionMatch& match)
{
    const QString number = match.captured(1);
    const bool isAscii = std::all_of(number.begin(), number.end(), [](QChar c) { return c < QChar(0x80); });
    if (number != QStringLiteral("½") && !isAscii)
        return std::nullopt;
    const double value = number == QStringLiteral("½") ? 0.5 : number.toDouble();
    const QString unit = match.captured(3).toLower();
    const double result = value * (unit.startsWith(u's') ? 1 : unit.startsWith(u'm') ? 60 : 3600);
    if (!(result >= 1) || result >= std::ldexp(1.0, 63))
        return std::nullopt;
    return static_cast<qint64>(result);
}

struct Candidate
{
    qsizetype start;
    DirectionSegment segment;

    qsizetype end() const { return start + segment.text.size(); }
};

} // namespace

QRegularExpression compiled(QString pattern, bool isCaseInsensitive)
{
    const QString word = QStringLiteral("[\\p{Alphabetic}\\p{M}\\p{Nd}\\p{Pc}]");
    pattern.replace(QStringLiteral("\\s"), QStringLiteral("[\\x09-\\x0d\\x{85}\\p{Z}]"));
    pattern.replace(QStringLiteral("\\d"), QStringLiteral("\\p{Nd}"));
    pattern.replace(QStringLiteral("\\b"), QStringLiteral("(?:(?<=%1)(?!%1)|(?<!%1)(?=%1))").arg(word));
    return QRegularExpression(pattern, isCaseInsensitive ? QRegularExpression::CaseInsensitiveOption
                                                         : QRegularExpression::NoPatternOption);
}

QString scale(const QString& line, double factor, const QLocale& locale)
{
    const QRegularExpressionMatch match = leading(line);
    if (!match.hasMatch() || (factor == 1.0 && !match.captured(1).contains(u'.')))
        return line;
    const std::optional<double> low = IngredientScaler::value(match.captured(1));
    QString text = low ? IngredientScaler::format(factor * *low, locale) : QString();
    if (text.isEmpty())
        return line;
    if (match.capturedLength(3) > 0) {
        if (const std::optional<double> high = IngredientScaler::value(match.captured(3))) {
            const QString highText = IngredientScaler::format(factor * *high, locale);
            if (highText.isEmpty())
                return line;
            text += match.captured(2) + highText;
        }
    }
    return line.left(match.capturedStart(1)) + text + line.mid(match.capturedEnd(0));
}

qsizetype leadingAmountLength(const QString& line)
{
    const QRegularExpressionMatch match = leading(line);
    return match.hasMatch() ? match.capturedEnd(0) : 0;
}

std::optional<qint64> minutes(const QString& text)
{
    static const QRegularExpression pattern = compiled(
        QStringLiteral("\\A(?:P(?:(\\d+)D)?(?:T(?:(\\d+)H)?(?:(\\d+)M)?(?:(\\d+(?:\\.\\d+)?)S)?)?)\\z"),
        true);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    qint64 sum = 0;
    const std::pair<int, qint64> groups[] = {{1, 1440}, {2, 60}, {3, 1}};
    for (const auto& [group, factor] : groups) {
        if (match.capturedLength(group) == 0)
            continue;
        const std::optional<qint64> value = integer(match.captured(group));
        qint64 product = 0;
        if (!value || __builtin_mul_overflow(*value, factor, &product) ||
            __builtin_add_overflow(sum, product, &sum))
            return std::nullopt;
    }
    return sum >= 1 ? std::optional(sum) : std::nullopt;
}

QString decodeEntities(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("&(#[0-9]+|#[xX][0-9a-fA-F]+|[a-zA-Z][a-zA-Z0-9]*);"));
    static const QHash<QString, QString> names = [] {
        const QStringList list =
            QStringLiteral(
                "amp & lt < gt > quot \" apos ' ndash – mdash — hellip … deg ° times × lsquo ‘ rsquo ’ ldquo "
                "“ "
                "rdquo ” laquo « raquo » frac12 ½ copy © reg ® trade ™ frac14 ¼ frac34 ¾ frac13 ⅓ frac23 ⅔ "
                "frac18 ⅛ eacute é egrave è ecirc ê aacute á agrave à acirc â iacute í oacute ó uacute ú "
                "ntilde ñ ccedil ç uuml ü ouml ö auml ä szlig ß bull •")
                .split(u' ');
        QHash<QString, QString> result{{QStringLiteral("nbsp"), QStringLiteral(" ")}};
        for (qsizetype i = 0; i < list.size(); i += 2)
            result.insert(list.at(i), list.at(i + 1));
        return result;
    }();
    QString result;
    qsizetype copied = 0;
    for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString body = match.captured(1);
        QString replacement = names.value(body, match.captured(0));
        if (body.startsWith(u'#')) {
            const bool isHex = body.at(1).toLower() == u'x';
            bool isNumber = false;
            const uint value = QStringView(body).sliced(isHex ? 2 : 1).toUInt(&isNumber, isHex ? 16 : 10);
            if (isNumber && value <= 0x10FFFF && !QChar::isSurrogate(value))
                replacement = QString::fromUcs4(reinterpret_cast<const char32_t*>(&value), 1);
        }
        result += text.mid(copied, match.capturedStart(0) - copied) + replacement;
        copied = match.capturedEnd(0);
    }
    return result + text.mid(copied);
}

QString clean(const QString& html)
{
    static const QRegularExpression breaks = compiled(QStringLiteral("<br\\s*/?>|</p>|</li>"), true);
    static const QRegularExpression tags(QStringLiteral("<[^>]+>"));
    static const QRegularExpression newlines(QStringLiteral("[\\x0a-\\x0d\\x{85}\\x{2028}\\x{2029}]"));
    static const QRegularExpression blanks(QStringLiteral("[ \\t\\x{a0}]+"));
    QString text = html;
    text = decodeEntities(text.replace(breaks, QStringLiteral("\n")).remove(tags));
    QStringList result;
    for (QString line : text.split(newlines)) {
        line = WhiteSpace::trimmedSpaces(line.replace(blanks, QStringLiteral(" "))).toString();
        if (!line.isEmpty())
            result << line;
    }
    return result.join(u'\n');
}

std::optional<QList<QList<DirectionSegment>>> segments(const QStringList& ingredients,
                                                       const QStringList& paragraphs)
{
    static const QRegularExpression timerPattern =
        compiled(QStringLiteral("(\\d+(?:\\.\\d+)?|½)(?:\\s*(?:-|–|—|to)\\s*(\\d+(?:\\.\\d+)?))?\\s*"
                                "(seconds?|secs?|minutes?|mins?|hours?|hrs?)\\b"),
                 true);
    QStringList phrases;
    QHash<QString, qsizetype> index;
    for (qsizetype i = 0; i < ingredients.size(); ++i) {
        IngredientPhrases::visit(ingredients.at(i), [&](const QString& phrase) {
            if (!index.contains(phrase)) {
                index.insert(phrase, i);
                phrases << phrase;
            }
            return true;
        });
    }
    std::stable_sort(phrases.begin(), phrases.end(),
                     [](const QString& a, const QString& b) { return a.size() > b.size(); });
    for (QString& phrase : phrases)
        phrase = phrase.replace(u'-', QStringLiteral("\\-")).replace(u' ', QStringLiteral("\\s+"));
    const QRegularExpression phrasePattern =
        compiled(QStringLiteral("\\b(?:%1)\\b").arg(phrases.join(u'|')), true);
    if (!phrasePattern.isValid())
        return std::nullopt;
    static const QRegularExpression space = compiled(QStringLiteral("\\s+"), false);

    QSet<qsizetype> mentioned;
    QList<QList<DirectionSegment>> result;
    for (const QString& paragraph : paragraphs) {
        QList<Candidate> candidates;
        for (auto matches = timerPattern.globalMatch(paragraph); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            if (const std::optional<qint64> seconds = timerSeconds(match))
                candidates.append(
                    {match.capturedStart(), DirectionSegment::timer(match.captured(), *seconds)});
        }
        const QList<Candidate> timers = candidates;
        for (auto matches = phrasePattern.globalMatch(paragraph); !phrases.isEmpty() && matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            const qsizetype start = match.capturedStart();
            const qsizetype end = match.capturedEnd();
            if ((start > 0 && paragraph.at(start - 1) == u'-') ||
                (end < paragraph.size() && paragraph.at(end) == u'-'))
                continue;
            const auto line = index.constFind(match.captured().toLower().replace(space, QStringLiteral(" ")));
            const bool overlaps = std::any_of(timers.begin(), timers.end(), [&](const Candidate& timer) {
                return timer.start < end && start < timer.end();
            });
            if (line == index.constEnd() || overlaps || mentioned.contains(*line))
                continue;
            mentioned.insert(*line);
            candidates.append({start, DirectionSegment::ingredient(match.captured(), *line)});
        }
        std::sort(candidates.begin(), candidates.end(),
                  [](const Candidate& a, const Candidate& b) { return a.start < b.start; });
        QList<DirectionSegment> pieces;
        qsizetype written = 0;
        for (const Candidate& candidate : candidates) {
            if (candidate.start > written)
                pieces << DirectionSegment::plain(paragraph.mid(written, candidate.start - written));
            pieces << candidate.segment;
            written = candidate.end();
        }
        if (written < paragraph.size())
            pieces << DirectionSegment::plain(paragraph.mid(written));
        result << pieces;
    }
    return result;
}

} // namespace ovrin::PatternReference
