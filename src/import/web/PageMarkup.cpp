#include "import/web/PageMarkup.h"

#include "text/Characters.h"
#include "text/HTMLText.h"
#include "text/WhiteSpace.h"
#include "json/Utf8.h"

#include <algorithm>
#include <array>

namespace ovrin {
namespace {

constexpr size_t npos = std::string_view::npos;

bool sameLetter(char byte, char lower)
{
    return byte == lower || (lower >= 'a' && lower <= 'z' && byte == char(lower - 'a' + 'A'));
}

/// No other character's lower case is an ASCII letter of the words that are looked for.
bool equalIgnoringCase(std::string_view text, std::string_view lower)
{
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), sameLetter);
}

QString decoded(std::string_view bytes)
{
    const QByteArray text = repairedUtf8(bytes);
    return stringFromUtf8({text.data(), size_t(text.size())});
}

/// End of `word` (lower case) at `at`, ignoring case, or npos. The long s folds to s like any other.
size_t endOfWord(std::string_view page, size_t at, std::string_view word)
{
    for (const char letter : word) {
        if (at < page.size() && sameLetter(page[at], letter)) {
            ++at;
        } else if (letter == 's' && page.substr(std::min(at, page.size())).starts_with("\u017F")) {
            at += 2;
        } else {
            return npos;
        }
    }
    return at;
}

struct Span
{
    size_t begin = npos;
    size_t end = npos;
    explicit operator bool() const { return begin != npos; }
};

/// The first place from `at` on that holds `word`, which starts with "<".
Span findTag(std::string_view page, std::string_view word, size_t at)
{
    while ((at = page.find('<', at)) != npos) {
        const size_t end = endOfWord(page, at, word);
        if (end != npos) {
            return {at, end};
        }
        ++at;
    }
    return {};
}

/// The first "application/ld+json" from `at` on. The plus sign is the rare byte in it.
Span findMediaType(std::string_view page, size_t at)
{
    constexpr std::string_view before = "application/ld";
    size_t plus = at + before.size();
    while ((plus = page.find('+', plus)) != npos) {
        const size_t begin = plus - before.size();
        const size_t end = endOfWord(page, plus + 1, "json");
        if (end != npos && endOfWord(page, begin, before) == plus) {
            return {begin, end};
        }
        ++plus;
    }
    return {};
}

bool isWhiteSpace(char32_t c)
{
    return c < 0x10000 && WhiteSpace::isWhiteSpace(char16_t(c));
}

size_t skipSpace(std::string_view text, size_t at)
{
    while (at < text.size()) {
        size_t next = at;
        if (!isWhiteSpace(decodeUtf8(text, next))) {
            break;
        }
        at = next;
    }
    return at;
}

std::string_view trimmed(std::string_view text)
{
    text.remove_prefix(skipSpace(text, 0));
    while (!text.empty()) {
        size_t start = text.size() - 1;
        while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) {
            --start;
        }
        size_t end = start;
        if (!isWhiteSpace(decodeUtf8(text, end)) || end != text.size()) {
            break;
        }
        text.remove_suffix(text.size() - start);
    }
    return text;
}

struct Attribute
{
    std::string_view name;
    std::string_view value;
};

/// Walks the quoted attributes of one tag.
class Attributes
{
public:
    explicit Attributes(std::string_view tag)
        : m_tag(tag)
    {
    }

    std::optional<Attribute> next()
    {
        while (const Span name = nextName()) {
            m_at = name.end;
            size_t at = skipSpace(m_tag, name.end);
            if (at >= m_tag.size() || m_tag[at] != '=') {
                continue;
            }
            at = skipSpace(m_tag, at + 1);
            if (at >= m_tag.size() || (m_tag[at] != '"' && m_tag[at] != '\'')) {
                continue;
            }
            const size_t close = m_tag.find(m_tag[at], at + 1);
            if (close != npos) {
                m_at = close + 1;
                return Attribute{m_tag.substr(name.begin, name.end - name.begin),
                                 m_tag.substr(at + 1, close - at - 1)};
            }
        }
        return std::nullopt;
    }

private:
    Span nextName()
    {
        Span name;
        for (size_t at = m_at; at < m_tag.size();) {
            size_t next = at;
            const char32_t c = decodeUtf8(m_tag, next);
            const bool belongs = c == ':' || c == '-' || Characters::isWordCharacter(c);
            if (belongs && !name) {
                name.begin = at;
            } else if (!belongs && name) {
                name.end = at;
                return name;
            }
            at = next;
        }
        if (name) {
            name.end = m_tag.size();
        }
        return name;
    }

    std::string_view m_tag;
    size_t m_at = 0;
};

} // namespace

JsonLDScripts::JsonLDScripts(std::string_view page)
    : m_page(page)
{
}

std::optional<std::string_view> JsonLDScripts::next()
{
    while (const Span type = findMediaType(m_page, m_search)) {
        // The tag's start lies before its type with no ">" in between, and nothing before the last look.
        const size_t bracket = m_page.substr(m_floor, type.begin - m_floor).rfind('>');
        const size_t floor = bracket == npos ? m_floor : m_floor + bracket + 1;
        m_floor = m_search = type.end;
        if (!findTag(m_page.substr(0, type.begin), "<script", floor)) {
            continue;
        }
        const size_t body = m_page.find('>', type.end);
        const Span close = body == npos ? Span() : findTag(m_page, "</script>", body + 1);
        if (!close) {
            // No later script can be closed either.
            m_search = m_floor = m_page.size();
            return std::nullopt;
        }
        m_floor = m_search = close.end;
        return trimmed(m_page.substr(body + 1, close.begin - body - 1));
    }
    m_search = m_floor = m_page.size();
    return std::nullopt;
}

std::optional<MetaTags::Tag> MetaTags::read(std::string_view tag)
{
    std::optional<std::string_view> property;
    std::optional<std::string_view> name;
    std::optional<std::string_view> content;
    struct Wanted
    {
        std::string_view name;
        std::optional<std::string_view>* value;
    };
    const std::array<Wanted, 3> wanted{{{"property", &property}, {"name", &name}, {"content", &content}}};

    Attributes attributes(tag);
    while (const auto attribute = attributes.next()) {
        for (const Wanted& one : wanted) {
            if (!*one.value && equalIgnoringCase(attribute->name, one.name)) {
                *one.value = attribute->value;
            }
        }
    }
    const auto& key = property ? property : name;
    return key && content ? std::optional(Tag{*key, *content}) : std::nullopt;
}

MetaTags MetaTags::in(std::string_view page)
{
    MetaTags result;
    size_t at = 0;
    while (const Span start = findTag(page, "<meta", at)) {
        at = start.end;
        size_t next = at;
        if (at < page.size() && Characters::isWordCharacter(decodeUtf8(page, next))) {
            continue;
        }
        const size_t end = page.find('>', at);
        if (end == npos) {
            break;
        }
        if (const auto tag = read(page.substr(start.begin, end + 1 - start.begin))) {
            result.m_tags.push_back(*tag);
        }
        at = end + 1;
    }
    return result;
}

std::optional<QString> MetaTags::operator[](std::string_view key) const
{
    for (const Tag& tag : m_tags) {
        if (equalIgnoringCase(tag.key, key)) {
            return HTMLText::decodeEntities(decoded(tag.content));
        }
    }
    return std::nullopt;
}

std::optional<QString> pageTitle(std::string_view page)
{
    const Span tag = findTag(page, "<title", 0);
    const size_t body = tag ? page.find('>', tag.end) : npos;
    const Span close = body == npos ? Span() : findTag(page, "</title>", body + 1);
    if (!close) {
        return std::nullopt;
    }
    return HTMLText::clean(decoded(page.substr(body + 1, close.begin - body - 1)));
}

} // namespace ovrin
