#include "json/JsonRepair.h"

#include <optional>
#include <string_view>

namespace ovrin {
namespace {

class Repair
{
public:
    explicit Repair(std::string_view text)
        : m_text(text)
    {
        m_result.reserve(qsizetype(text.size()));
    }

    QByteArray run()
    {
        skip("\xEF\xBB\xBF");
        while (!atEnd()) {
            if (m_text[m_at] == '"') {
                copyString();
            } else if (!skipWrapping() && !skipComment()) {
                copyOutside();
            }
        }
        dropTrailing(",;");
        return m_result;
    }

private:
    bool atEnd() const { return m_at >= m_text.size(); }
    std::string_view rest() const { return m_text.substr(m_at); }

    bool skip(std::string_view mark)
    {
        if (!rest().starts_with(mark)) {
            return false;
        }
        m_at += mark.size();
        return true;
    }

    bool skipWrapping() { return skip("<![CDATA[") || skip("]]>") || skip("<!--") || skip("-->"); }

    bool skipComment()
    {
        if (skip("/*")) {
            // A comment that never ends is no comment; what follows then fails to parse.
            const size_t end = m_text.find("*/", m_at);
            m_at = end == m_text.npos ? m_text.size() : end + 2;
            return true;
        }
        if (skip("//")) {
            // "//<![CDATA[" may have the text itself behind it on the same line.
            const size_t word = std::min(m_text.find_first_not_of(" \t", m_at), m_text.size());
            const std::string_view after = m_text.substr(word);
            if (!after.starts_with("<![CDATA[") && !after.starts_with("]]>")) {
                m_at = std::min(m_text.find_first_of("\r\n", m_at), m_text.size());
            }
            return true;
        }
        return false;
    }

    void copyOutside()
    {
        const char c = m_text[m_at++];
        if (c == '}' || c == ']') {
            dropTrailing(",");
        }
        m_result += c;
    }

    /// Takes one run of white space and any of `marks` off the end; only ever called outside strings.
    void dropTrailing(std::string_view marks)
    {
        qsizetype end = m_result.size();
        bool found = false;
        for (; end > 0; --end) {
            const char c = m_result[end - 1];
            if (marks.find(c) != marks.npos && (!found || marks.size() > 1)) {
                found = true;
            } else if (c != ' ' && c != '\t' && c != '\n' && c != '\r') {
                break;
            }
        }
        // "[,]" has lost something else.
        const bool afterValue = end > 0 && m_result[end - 1] != '[' && m_result[end - 1] != '{';
        if (found && afterValue) {
            m_result.truncate(end);
        }
    }

    void copyString()
    {
        m_result += m_text[m_at++];
        while (!atEnd()) {
            const char c = m_text[m_at++];
            if (c == '"') {
                m_result += c;
                return;
            }
            if (c == '\\') {
                copyEscape();
            } else {
                m_result += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
            }
        }
    }

    void copyEscape()
    {
        if (atEnd()) {
            return;
        }
        const char c = m_text[m_at];
        if (c == 'u') {
            ++m_at;
            copyUnicodeEscape();
        } else if (std::string_view("\"\\/bfnrt").find(c) != std::string_view::npos) {
            ++m_at;
            m_result += '\\';
            m_result += c;
        }
        // Any other character follows as it stands, without the backslash.
    }

    std::optional<unsigned> hexAt(size_t at) const
    {
        if (at + 4 > m_text.size()) {
            return std::nullopt;
        }
        unsigned value = 0;
        for (const char c : m_text.substr(at, 4)) {
            const char lower = char(c | 0x20);
            if (c >= '0' && c <= '9') {
                value = value * 16 + unsigned(c - '0');
            } else if (lower >= 'a' && lower <= 'f') {
                value = value * 16 + unsigned(lower - 'a' + 10);
            } else {
                return std::nullopt;
            }
        }
        return value;
    }

    void copyUnicodeEscape()
    {
        const auto unit = hexAt(m_at);
        if (!unit) {
            m_result += "\\\\u";
            return;
        }
        const bool high = *unit >= 0xD800 && *unit < 0xDC00;
        const bool low = *unit >= 0xDC00 && *unit < 0xE000;
        const auto next = high && m_text.substr(m_at + 4).starts_with("\\u") ? hexAt(m_at + 6) : std::nullopt;
        const bool pair = next && *next >= 0xDC00 && *next < 0xE000;
        if ((high && !pair) || low) {
            m_result += "\\uFFFD";
            m_at += 4;
            return;
        }
        const size_t length = pair ? 10 : 4;
        m_result += "\\u";
        m_result.append(m_text.data() + m_at, qsizetype(length));
        m_at += length;
    }

    std::string_view m_text;
    size_t m_at = 0;
    QByteArray m_result;
};

} // namespace

QByteArray repairedJson(QByteArrayView utf8)
{
    return Repair(std::string_view(utf8.data(), size_t(utf8.size()))).run();
}

} // namespace ovrin
