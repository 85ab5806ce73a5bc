#pragma once

#include <QtCore/QStringList>
#include <QtCore/QStringView>

namespace ovrin {

/// What counts as white space everywhere in Ovrin: the Unicode property White_Space, in its two halves.
/// All of these characters lie in the Basic Multilingual Plane, so single UTF-16 units can be asked.
namespace WhiteSpace {

/// U+000A to U+000D, U+0085, U+2028 and U+2029.
constexpr bool isNewline(char16_t c)
{
    return (c >= u'\n' && c <= u'\r') || c == u'\u0085' || c == u'\u2028' || c == u'\u2029';
}

/// The tab and the space separators (general category Zs), the no-break spaces among them.
constexpr bool isSpaceOrTab(char16_t c)
{
    if (c < 0x80)
        return c == u' ' || c == u'\t';
    return c == u'\u00A0' || c == u'\u1680' || (c >= u'\u2000' && c <= u'\u200A') || c == u'\u202F' ||
           c == u'\u205F' || c == u'\u3000';
}

constexpr bool isWhiteSpace(char16_t c)
{
    return isSpaceOrTab(c) || isNewline(c);
}

/// Without the white space at both ends, newlines included.
QStringView trimmed(QStringView text);

/// Without the spaces and tabs at both ends; newlines stay.
QStringView trimmedSpaces(QStringView text);

/// Every CR LF as one LF: done once where text comes in. A lone CR stays, it is a newline of its own.
QString withUnixLineBreaks(QString text);

/// The text cut at every newline; CR LF cuts once. Empty lines are kept, so there is always at least one
/// line.
QStringList lines(QStringView text);

} // namespace WhiteSpace

} // namespace ovrin
