#include "text/TimerScanner.h"

#include "text/Characters.h"

#include <QtCore/QVarLengthArray>

#include <algorithm>
#include <array>
#include <optional>

namespace ovrin::TimerScanner {

namespace {

constexpr std::array unitWords{
    QLatin1String("second"), QLatin1String("seconds"), QLatin1String("sec"), QLatin1String("secs"),
    QLatin1String("minute"), QLatin1String("minutes"), QLatin1String("min"), QLatin1String("mins"),
    QLatin1String("hour"),   QLatin1String("hours"),   QLatin1String("hr"),  QLatin1String("hrs"),
};
constexpr qsizetype longestUnit = 7;

/// The end of an integer or decimal that starts at `start`, or `start`; `wholeEnd` becomes the end of its
/// digits before the point.
qsizetype numberEnd(QStringView text, qsizetype start, qsizetype& wholeEnd)
{
    wholeEnd = Characters::skipDigits(text, start);
    if (wholeEnd == start || wholeEnd == text.size() || text[wholeEnd] != u'.')
        return wholeEnd;
    const qsizetype end = Characters::skipDigits(text, wholeEnd + 1);
    return end == wholeEnd + 1 ? wholeEnd : end;
}

/// The end of "-", "–", "—" or "to" and the number behind it, or `start`.
qsizetype rangeEnd(QStringView text, qsizetype start)
{
    qsizetype i = Characters::skipWhiteSpace(text, start);
    if (i < text.size() && (text[i] == u'-' || text[i] == u'–' || text[i] == u'—'))
        i += 1;
    else if (text.sliced(i).startsWith(QLatin1String("to"), Qt::CaseInsensitive))
        i += 2;
    else
        return start;
    i = Characters::skipWhiteSpace(text, i);
    qsizetype wholeEnd = i;
    const qsizetype end = numberEnd(text, i, wholeEnd);
    return end == i ? start : end;
}

/// The end of a unit word that starts at `start` and ends at a word boundary, or `start`.
qsizetype unitEnd(QStringView text, qsizetype start)
{
    QVarLengthArray<char16_t, longestUnit> word;
    qsizetype end = start;
    while (end < text.size()) {
        const auto [c, length] = Characters::at(text, end);
        if (!Characters::isWordCharacter(c))
            break;
        if (length != 1 || word.size() == longestUnit)
            return start;
        word.append(static_cast<char16_t>(Characters::folded(c)));
        end += length;
    }
    return std::find(unitWords.begin(), unitWords.end(), QStringView(word)) == unitWords.end() ? start : end;
}

std::optional<qint64> seconds(QStringView amount, QChar unit)
{
    const std::optional<double> number = amount == u"½" ? 0.5 : Characters::decimal(amount);
    if (!number)
        return std::nullopt;
    const QChar initial = unit.toLower();
    const double result = *number * (initial == u's' ? 1 : initial == u'm' ? 60 : 3600);
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!(result >= 1 && result < limit))
        return std::nullopt;
    return static_cast<qint64>(result);
}

} // namespace

std::vector<Timer> find(QStringView text)
{
    std::vector<Timer> timers;
    for (qsizetype start = 0; start < text.size();) {
        const auto [c, length] = Characters::at(text, start);
        qsizetype wholeEnd = start + length;
        qsizetype amountEnd = wholeEnd;
        if (Characters::isDigit(c)) {
            amountEnd = numberEnd(text, start, wholeEnd);
        } else if (c != U'½') {
            start += length;
            continue;
        }
        const qsizetype unit = Characters::skipWhiteSpace(text, rangeEnd(text, amountEnd));
        const qsizetype end = unitEnd(text, unit);
        if (end == unit) {
            // The other digits of the number stand before the same text: a start at one of them fails as
            // well.
            start = wholeEnd;
            continue;
        }
        if (const auto duration = seconds(text.sliced(start, amountEnd - start), text[unit]))
            timers.push_back({start, end, *duration});
        start = end;
    }
    return timers;
}

} // namespace ovrin::TimerScanner
