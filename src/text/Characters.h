#pragma once

#include <QtCore/QStringView>

#include <optional>

namespace ovrin {

/// The character classes that the scanners of this room share. Positions are UTF-16 units, characters are
/// code points; half a surrogate pair is a character that belongs to no class.
namespace Characters {

struct CodePoint
{
    char32_t value;
    qsizetype length;
};

/// The character that starts at `position`, which must lie inside `text`.
inline CodePoint at(QStringView text, qsizetype position)
{
    const QChar first = text[position];
    if (first.isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(first, text[position + 1]), 2};
    return {first.unicode(), 1};
}

/// A decimal digit of any script (general category Nd).
inline bool isDigit(char32_t c)
{
    if (c < 0x80)
        return c >= U'0' && c <= U'9';
    return QChar::category(c) == QChar::Number_DecimalDigit;
}

/// A character that words are made of: Alphabetic, a mark, a decimal digit or connecting punctuation. A word
/// boundary lies between one of these and anything else. ½ is none; the accent of a decomposed é is one.
bool isWordCharacter(char32_t c);

/// Simple case folding, so that characters that differ in case alone become equal and no text changes its
/// length.
char32_t folded(char32_t c);

/// The end of the run of digits, or of white space, that starts at `from`; `from` itself when there is none.
qsizetype skipDigits(QStringView text, qsizetype from);
qsizetype skipWhiteSpace(QStringView text, qsizetype from);

/// A plain decimal number ("12", "0.75", ".5") in ASCII digits, without exponent. Infinite when it is too
/// large for a double, 0 when it is too small, nothing when the text is anything else.
std::optional<double> decimal(QStringView text);

} // namespace Characters

} // namespace ovrin
