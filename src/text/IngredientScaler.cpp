#include "text/IngredientScaler.h"

#include "text/Characters.h"
#include "text/WhiteSpace.h"

#include <charconv>
#include <cmath>

namespace ovrin::IngredientScaler {

namespace {

struct Fraction
{
    char16_t glyph;
    double value;
};

/// All that are read.
constexpr std::array glyphs{
    Fraction{u'¼', 0.25},    Fraction{u'½', 0.5},     Fraction{u'¾', 0.75},    Fraction{u'⅓', 1.0 / 3},
    Fraction{u'⅔', 2.0 / 3}, Fraction{u'⅛', 0.125},   Fraction{u'⅜', 0.375},   Fraction{u'⅝', 0.625},
    Fraction{u'⅞', 0.875},   Fraction{u'⅕', 0.2},     Fraction{u'⅖', 0.4},     Fraction{u'⅗', 0.6},
    Fraction{u'⅘', 0.8},     Fraction{u'⅙', 1.0 / 6}, Fraction{u'⅚', 5.0 / 6},
};

/// All that are written, in the order in which they are tried: where two are near enough, the first one wins.
constexpr std::array writtenFractions{
    Fraction{u'⅛', 0.125},   Fraction{u'¼', 0.25}, Fraction{u'⅓', 1.0 / 3},
    Fraction{u'⅜', 0.375},   Fraction{u'½', 0.5},  Fraction{u'⅝', 0.625},
    Fraction{u'⅔', 2.0 / 3}, Fraction{u'¾', 0.75}, Fraction{u'⅞', 0.875},
};

/// How far a number may lie from the whole number or fraction that is written for it.
constexpr double tolerance = 0.03;

/// The glyph's value, 0 for any other character.
double glyphValue(char16_t c)
{
    if (c < u'¼')
        return 0;
    for (const Fraction& fraction : glyphs) {
        if (fraction.glyph == c)
            return fraction.value;
    }
    return 0;
}

bool isGlyphAt(QStringView line, qsizetype position)
{
    return position < line.size() && glyphValue(line[position].unicode()) > 0;
}

/// The end of the digits behind `mark` when that stands at `position` with digits behind it, else `position`.
qsizetype markedDigitsEnd(QStringView line, qsizetype position, char16_t mark)
{
    if (position == line.size() || line[position] != mark)
        return position;
    const qsizetype end = Characters::skipDigits(line, position + 1);
    return end == position + 1 ? position : end;
}

/// The end of the amount that starts at `start`, which is `start` when none does. The first of these forms
/// counts: "1 1/2", "1 ½", "3/4", "2" or "0.75", "½".
qsizetype amountEnd(QStringView line, qsizetype start)
{
    const qsizetype whole = Characters::skipDigits(line, start);
    if (whole == start)
        return isGlyphAt(line, start) ? start + 1 : start;
    const qsizetype next = Characters::skipWhiteSpace(line, whole);
    if (next > whole) {
        const qsizetype numerator = Characters::skipDigits(line, next);
        const qsizetype end = numerator > next ? markedDigitsEnd(line, numerator, u'/') : numerator;
        if (end > numerator)
            return end;
    }
    if (isGlyphAt(line, next))
        return next + 1;
    const qsizetype fraction = markedDigitsEnd(line, whole, u'/');
    return fraction > whole ? fraction : markedDigitsEnd(line, whole, u'.');
}

/// The end of "-", "–" or "to" and the white space around it, or `start`.
qsizetype separatorEnd(QStringView line, qsizetype start)
{
    qsizetype i = Characters::skipWhiteSpace(line, start);
    if (i < line.size() && (line[i] == u'-' || line[i] == u'–'))
        i += 1;
    else if (line.sliced(i).startsWith(u"to"))
        i += 2;
    else
        return start;
    return Characters::skipWhiteSpace(line, i);
}

/// Where the parts of a leading amount lie: white space up to `start`, the amount up to `amountEnd`, and for
/// a range its separator up to `separatorEnd` and its upper bound up to `end`. Without a range the last three
/// are the same, without an amount all four.
struct LeadingAmount
{
    qsizetype start;
    qsizetype amountEnd;
    qsizetype separatorEnd;
    qsizetype end;

    bool isEmpty() const { return amountEnd == start; }
    bool isRange() const { return end > separatorEnd; }
};

LeadingAmount leadingAmount(QStringView line)
{
    const qsizetype start = Characters::skipWhiteSpace(line, 0);
    const qsizetype amount = amountEnd(line, start);
    if (amount == start)
        return {start, start, start, start};
    const qsizetype separator = separatorEnd(line, amount);
    const qsizetype upper = separator > amount ? amountEnd(line, separator) : separator;
    return upper > separator ? LeadingAmount{start, amount, separator, upper}
                             : LeadingAmount{start, amount, amount, amount};
}

std::optional<double> quotient(QStringView piece)
{
    std::array<double, 2> numbers{};
    std::size_t count = 0;
    for (const QStringView part : piece.tokenize(u'/', Qt::SkipEmptyParts)) {
        const std::optional<double> number = Characters::decimal(WhiteSpace::trimmed(part));
        if (!number)
            continue;
        if (count == numbers.size())
            return std::nullopt;
        numbers.at(count++) = *number;
    }
    if (count != numbers.size() || numbers[1] == 0)
        return std::nullopt;
    return numbers[0] / numbers[1];
}

std::optional<double> pieceValue(QStringView piece)
{
    piece = WhiteSpace::trimmed(piece);
    if (piece.contains(u'/'))
        return quotient(piece);
    const double fraction = piece.isEmpty() ? 0 : glyphValue(piece.back().unicode());
    if (fraction > 0)
        return fraction + Characters::decimal(WhiteSpace::trimmed(piece.chopped(1))).value_or(0);
    return Characters::decimal(piece);
}

bool hasForeignDigit(QStringView text)
{
    for (qsizetype i = 0; i < text.size();) {
        const auto [c, length] = Characters::at(text, i);
        if (c >= 0x80 && Characters::isDigit(c))
            return true;
        i += length;
    }
    return false;
}

/// As the locale writes it, with two decimal places at most.
QString decimalText(double number, const QLocale& locale)
{
    QString text = locale.toString(number, 'f', 2);
    const QString zero = locale.zeroDigit();
    while (text.endsWith(zero))
        text.chop(zero.size());
    if (text.endsWith(locale.decimalPoint()))
        text.chop(locale.decimalPoint().size());
    return text;
}

/// Appends what `format` says; false when there is nothing to say.
bool appendFormatted(QString& text, double number, const QLocale& locale)
{
    constexpr double limit = 9223372036854775808.0; // 2^63, the first whole number that does not fit
    const double floor = std::floor(number);
    if (!(floor >= -limit && floor < limit))
        return false;
    const auto appendWhole = [&text](qint64 whole) {
        std::array<char, 24> digits{};
        const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), whole).ptr;
        text.append(QLatin1String(digits.data(), end));
    };
    const auto whole = static_cast<qint64>(floor);
    const double rest = number - floor;
    if (rest < tolerance) {
        appendWhole(whole);
        return true;
    }
    if (rest > 1 - tolerance) {
        appendWhole(whole + 1);
        return true;
    }
    for (const Fraction& fraction : writtenFractions) {
        if (std::abs(fraction.value - rest) < tolerance) {
            if (whole != 0)
                appendWhole(whole);
            text.append(QChar(fraction.glyph));
            return true;
        }
    }
    text.append(decimalText(number, locale));
    return true;
}

} // namespace

QString scaleLabel(double factor, const QLocale& locale)
{
    return factor == 1.0 ? QStringLiteral("Original") : format(factor, locale) + u'×';
}

std::optional<double> value(QStringView amount)
{
    // Reading half of such an amount ("١½" as ½) would change what the line says.
    if (hasForeignDigit(amount))
        return std::nullopt;
    double sum = 0;
    for (const QStringView piece : amount.tokenize(u' ', Qt::SkipEmptyParts)) {
        const std::optional<double> number = pieceValue(piece);
        if (!number)
            return std::nullopt;
        sum += *number;
    }
    return std::isfinite(sum) ? std::optional(sum) : std::nullopt;
}

QString format(double number, const QLocale& locale)
{
    QString text;
    appendFormatted(text, number, locale);
    return text;
}

QString scale(const QString& line, double factor, const QLocale& locale)
{
    const QStringView view(line);
    const LeadingAmount found = leadingAmount(view);
    if (found.isEmpty())
        return line;
    const QStringView amount = view.sliced(found.start, found.amountEnd - found.start);
    if (factor == 1.0 && !amount.contains(u'.'))
        return line;
    const std::optional<double> low = value(amount);
    if (!low)
        return line;

    QString result;
    result.reserve(line.size() + 16);
    result.append(view.first(found.start));
    if (!appendFormatted(result, factor * *low, locale))
        return line;
    if (found.isRange()) {
        if (const auto high = value(view.sliced(found.separatorEnd, found.end - found.separatorEnd))) {
            result.append(view.sliced(found.amountEnd, found.separatorEnd - found.amountEnd));
            if (!appendFormatted(result, factor * *high, locale))
                return line;
        }
    }
    return result.append(view.sliced(found.end));
}

qsizetype leadingAmountLength(QStringView line)
{
    const LeadingAmount found = leadingAmount(line);
    return found.isEmpty() ? 0 : found.end;
}

bool isSectionHeading(QStringView line)
{
    return WhiteSpace::trimmed(line).endsWith(u':') && leadingAmount(line).isEmpty();
}

} // namespace ovrin::IngredientScaler
