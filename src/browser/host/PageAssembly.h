#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QUrl>

#include <optional>

namespace ovrin::browser {

/// A page as its reader's browser shows it.
struct SentPage
{
    QUrl address;
    /// Its outer HTML, UTF-8.
    QByteArray html;
};

/// Puts one page together from the extension's messages, which arrive in this order:
///
///     {"kind": "page", "address": "https://…", "parts": 2}
///     {"kind": "part", "html": "<html>…"}
///     {"kind": "part", "html": "…</html>"}
///
/// Members that it does not know are ignored, so that a newer extension can say more.
class PageAssembly
{
public:
    /// `maximumBytes` is what a page may have, all its parts together.
    explicit PageAssembly(qsizetype maximumBytes);

    /// The page, once the message was its last one. Throws Refusal.
    std::optional<SentPage> take(const QByteArray& message);

private:
    qsizetype m_maximumBytes;
    SentPage m_page;
    /// Parts still to come; nothing before the page was announced.
    std::optional<qint64> m_missing;
};

} // namespace ovrin::browser
