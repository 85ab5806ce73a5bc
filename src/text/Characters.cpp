#include "text/Characters.h"

#include "text/WhiteSpace.h"

#include <QtCore/QVarLengthArray>

#include <charconv>
#include <limits>

namespace ovrin::Characters {

namespace {

/// Circled and squared letters: symbols by category, letters by the property Alphabetic.
constexpr bool isLetterLikeSymbol(char32_t c)
{
    return (c >= 0x24B6 && c <= 0x24E9) || (c >= 0x1F130 && c <= 0x1F149) || (c >= 0x1F150 && c <= 0x1F169) ||
           (c >= 0x1F170 && c <= 0x1F189);
}

} // namespace

bool isWordCharacter(char32_t c)
{
    if (c < 0x80)
        return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9') || c == U'_';
    switch (QChar::category(c)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
    case QChar::Number_Letter:
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Number_DecimalDigit:
    case QChar::Punctuation_Connector:
        return true;
    case QChar::Symbol_Other:
        return isLetterLikeSymbol(c);
    default:
        return false;
    }
}

char32_t folded(char32_t c)
{
    if (c < 0x80)
        return c >= U'A' && c <= U'Z' ? c + 32 : c;
    const char32_t result = QChar::toCaseFolded(c);
    // Qt leaves a character alone whose full folding is several characters long. The simple folding that such
    // a capital has besides (ẞ, and Greek capitals with an iota beneath) is its lower-case letter.
    if (result == c && (c == 0x1E9E || (c >= 0x1F88 && c <= 0x1FFC)))
        return QChar::toLower(c);
    return result;
}

qsizetype skipDigits(QStringView text, qsizetype from)
{
    while (from < text.size()) {
        const auto [c, length] = at(text, from);
        if (!isDigit(c))
            break;
        from += length;
    }
    return from;
}

qsizetype skipWhiteSpace(QStringView text, qsizetype from)
{
    while (from < text.size() && WhiteSpace::isWhiteSpace(text[from].unicode()))
        ++from;
    return from;
}

std::optional<double> decimal(QStringView text)
{
    QVarLengthArray<char, 32> ascii;
    ascii.reserve(text.size());
    bool isBelowOne = true;
    bool isAfterPoint = false;
    for (const QChar c : text) {
        if (c == u'.')
            isAfterPoint = true;
        else if (c < u'0' || c > u'9')
            return std::nullopt;
        else if (!isAfterPoint && c != u'0')
            isBelowOne = false;
        ascii.append(static_cast<char>(c.unicode()));
    }
    double value = 0;
    const char* const end = ascii.constData() + ascii.size();
    const auto read = std::from_chars(ascii.constData(), end, value, std::chars_format::fixed);
    if (read.ec == std::errc::invalid_argument || read.ptr != end)
        return std::nullopt;
    if (read.ec == std::errc::result_out_of_range)
        return isBelowOne ? 0 : std::numeric_limits<double>::infinity();
    return value;
}

} // namespace ovrin::Characters
