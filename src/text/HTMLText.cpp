#include "text/HTMLText.h"

#include "text/WhiteSpace.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ovrin::HTMLText {

namespace {

struct NamedEntity
{
    QLatin1String name;
    char16_t character;
};

/// Sorted by name. A no-break space decodes to a plain one, so that it is collapsed like any other.
constexpr std::array namedEntities{
    NamedEntity{QLatin1String("aacute"), u'á'}, NamedEntity{QLatin1String("acirc"), u'â'},
    NamedEntity{QLatin1String("agrave"), u'à'}, NamedEntity{QLatin1String("amp"), u'&'},
    NamedEntity{QLatin1String("apos"), u'\''},  NamedEntity{QLatin1String("auml"), u'ä'},
    NamedEntity{QLatin1String("bull"), u'•'},   NamedEntity{QLatin1String("ccedil"), u'ç'},
    NamedEntity{QLatin1String("copy"), u'©'},   NamedEntity{QLatin1String("deg"), u'°'},
    NamedEntity{QLatin1String("eacute"), u'é'}, NamedEntity{QLatin1String("ecirc"), u'ê'},
    NamedEntity{QLatin1String("egrave"), u'è'}, NamedEntity{QLatin1String("frac12"), u'½'},
    NamedEntity{QLatin1String("frac13"), u'⅓'}, NamedEntity{QLatin1String("frac14"), u'¼'},
    NamedEntity{QLatin1String("frac18"), u'⅛'}, NamedEntity{QLatin1String("frac23"), u'⅔'},
    NamedEntity{QLatin1String("frac34"), u'¾'}, NamedEntity{QLatin1String("gt"), u'>'},
    NamedEntity{QLatin1String("hellip"), u'…'}, NamedEntity{QLatin1String("iacute"), u'í'},
    NamedEntity{QLatin1String("laquo"), u'«'},  NamedEntity{QLatin1String("ldquo"), u'“'},
    NamedEntity{QLatin1String("lsquo"), u'‘'},  NamedEntity{QLatin1String("lt"), u'<'},
    NamedEntity{QLatin1String("mdash"), u'—'},  NamedEntity{QLatin1String("nbsp"), u' '},
    NamedEntity{QLatin1String("ndash"), u'–'},  NamedEntity{QLatin1String("ntilde"), u'ñ'},
    NamedEntity{QLatin1String("oacute"), u'ó'}, NamedEntity{QLatin1String("ouml"), u'ö'},
    NamedEntity{QLatin1String("quot"), u'"'},   NamedEntity{QLatin1String("raquo"), u'»'},
    NamedEntity{QLatin1String("rdquo"), u'”'},  NamedEntity{QLatin1String("reg"), u'®'},
    NamedEntity{QLatin1String("rsquo"), u'’'},  NamedEntity{QLatin1String("szlig"), u'ß'},
    NamedEntity{QLatin1String("times"), u'×'},  NamedEntity{QLatin1String("trade"), u'™'},
    NamedEntity{QLatin1String("uacute"), u'ú'}, NamedEntity{QLatin1String("uuml"), u'ü'},
};
static_assert(namedEntities.size() == 42);

constexpr bool isAsciiDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

constexpr bool isAsciiLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// The value of a hexadecimal digit, 16 for anything else.
constexpr unsigned hexDigit(char16_t c)
{
    if (isAsciiDigit(c))
        return c - u'0';
    const char16_t lower = c | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

std::optional<char32_t> named(QStringView name)
{
    const auto found = std::lower_bound(
        namedEntities.begin(), namedEntities.end(), name,
        [](const NamedEntity& entity, QStringView wanted) { return wanted.compare(entity.name) > 0; });
    if (found == namedEntities.end() || name != found->name)
        return std::nullopt;
    return found->character;
}

/// The character of that number, when it is a Unicode scalar value.
std::optional<char32_t> numbered(QStringView digits, unsigned base)
{
    char32_t value = 0;
    for (const QChar c : digits) {
        value = value * base + hexDigit(c.unicode());
        if (value > QChar::LastValidCodePoint)
            return std::nullopt;
    }
    if (QChar::isSurrogate(value))
        return std::nullopt;
    return value;
}

/// The entity that starts with the "&" at `start`. `end` becomes the place where the search for the next one
/// goes on: behind its ";" when there is a character, and never behind another "&".
std::optional<char32_t> entityAt(QStringView text, qsizetype start, qsizetype& end)
{
    qsizetype i = start + 1;
    const auto at = [text](qsizetype position) {
        return position < text.size() ? text[position].unicode() : u'\0';
    };
    const bool isNumber = at(i) == u'#';
    unsigned base = 10;
    if (isNumber) {
        ++i;
        if (at(i) == u'x' || at(i) == u'X') {
            base = 16;
            ++i;
        }
    }
    const qsizetype body = i;
    if (isNumber) {
        while (hexDigit(at(i)) < base)
            ++i;
    } else if (isAsciiLetter(at(i))) {
        while (isAsciiLetter(at(i)) || isAsciiDigit(at(i)))
            ++i;
    }
    end = i;
    if (i == body || at(i) != u';')
        return std::nullopt;
    ++end;
    const QStringView value = text.sliced(body, i - body);
    return isNumber ? numbered(value, base) : named(value);
}

/// The end of a `<br>`, `</p>` or `</li>` that starts at `start`, or `start` itself.
qsizetype lineBreakEnd(QStringView text, qsizetype start)
{
    const QStringView rest = text.sliced(start);
    if (rest.startsWith(QLatin1String("</p>"), Qt::CaseInsensitive))
        return start + 4;
    if (rest.startsWith(QLatin1String("</li>"), Qt::CaseInsensitive))
        return start + 5;
    if (!rest.startsWith(QLatin1String("<br"), Qt::CaseInsensitive))
        return start;
    qsizetype i = start + 3;
    while (i < text.size() && WhiteSpace::isWhiteSpace(text[i].unicode()))
        ++i;
    if (i < text.size() && text[i] == u'/')
        ++i;
    return i < text.size() && text[i] == u'>' ? i + 1 : start;
}

QString withLineBreaks(QStringView html)
{
    QString result;
    result.reserve(html.size());
    qsizetype copied = 0;
    for (qsizetype i = html.indexOf(u'<'); i >= 0; i = html.indexOf(u'<', i)) {
        const qsizetype end = lineBreakEnd(html, i);
        if (end == i) {
            ++i;
            continue;
        }
        result.append(html.sliced(copied, i - copied)).append(u'\n');
        copied = i = end;
    }
    return result.append(html.sliced(copied));
}

/// A tag is "<", at least one character that is not ">", and ">".
QString withoutTags(QStringView html)
{
    QString result;
    result.reserve(html.size());
    qsizetype copied = 0;
    for (qsizetype i = html.indexOf(u'<'); i >= 0; i = html.indexOf(u'<', i)) {
        const qsizetype end = html.indexOf(u'>', i + 1);
        if (end < 0)
            break;
        if (end > i + 1) {
            result.append(html.sliced(copied, i - copied));
            copied = end + 1;
        }
        i = end + 1;
    }
    return result.append(html.sliced(copied));
}

constexpr bool isCollapsed(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\u00A0';
}

/// Appends the line, trimmed and with its blanks collapsed, on a line of its own; an empty one not at all.
void appendLine(QString& result, QStringView line)
{
    line = WhiteSpace::trimmedSpaces(line);
    if (line.isEmpty())
        return;
    if (!result.isEmpty())
        result.append(u'\n');
    bool isAfterBlank = false;
    for (const QChar c : line) {
        const bool isBlank = isCollapsed(c.unicode());
        if (!isBlank)
            result.append(c);
        else if (!isAfterBlank)
            result.append(u' ');
        isAfterBlank = isBlank;
    }
}

QString tidied(QStringView text)
{
    QString result;
    result.reserve(text.size());
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (WhiteSpace::isNewline(text[i].unicode())) {
            appendLine(result, text.sliced(start, i - start));
            start = i + 1;
        }
    }
    appendLine(result, text.sliced(start));
    return result;
}

} // namespace

QString clean(const QString& html)
{
    const QString text = html.contains(u'<') ? withoutTags(withLineBreaks(html)) : html;
    return tidied(decodeEntities(text));
}

QString decodeEntities(const QString& text)
{
    qsizetype ampersand = text.indexOf(u'&');
    if (ampersand < 0)
        return text;
    QString result;
    result.reserve(text.size());
    qsizetype copied = 0;
    while (ampersand >= 0) {
        qsizetype end = 0;
        if (const std::optional<char32_t> character = entityAt(text, ampersand, end)) {
            result.append(QStringView(text).sliced(copied, ampersand - copied));
            result.append(QStringView(QChar::fromUcs4(*character)));
            copied = end;
        }
        ampersand = text.indexOf(u'&', end);
    }
    return result.append(QStringView(text).sliced(copied));
}

} // namespace ovrin::HTMLText
