#pragma once

#include <QtCore/QString>

#include <optional>
#include <string_view>
#include <vector>

namespace ovrin {

/// The few places of an HTML document that an import looks at, found by scanning its bytes.
///
/// Nothing here builds a document: pages are large, rarely well-formed, and hold their recipe in plain sight.
/// Each scanner does exactly what the regular expression in its comment does (case-insensitive, in Unicode;
/// no position of the page is looked at more than a few times) and takes UTF-8 that may be broken.

/// Walks the bodies of the page's JSON-LD scripts in document order, trimmed of white space:
/// `(?is)<script[^>]*application/ld\+json[^>]*>(.*?)</script>`
class JsonLDScripts
{
public:
    explicit JsonLDScripts(std::string_view page);

    std::optional<std::string_view> next();

private:
    std::string_view m_page;
    /// Where the next match may start, and from where on the media type was not looked for yet.
    size_t m_floor = 0;
    size_t m_search = 0;
};

/// The page's meta tags, `(?i)<meta\b[^>]*>`, by their `property`, else their `name`, in lower case. The
/// first tag with a key counts. Attributes: `([\w:-]+)\s*=\s*(?:"([^"]*)"|'([^']*)')`, the first of a name
/// counts.
class MetaTags
{
public:
    static MetaTags in(std::string_view page);

    /// Content with its entities decoded. `key` is in lower case.
    std::optional<QString> operator[](std::string_view key) const;

private:
    struct Tag
    {
        std::string_view key;
        std::string_view content;
    };
    static std::optional<Tag> read(std::string_view tag);

    std::vector<Tag> m_tags;
};

/// The first title element's text, cleaned: `(?is)<title[^>]*>(.*?)</title>`
std::optional<QString> pageTitle(std::string_view page);

} // namespace ovrin
