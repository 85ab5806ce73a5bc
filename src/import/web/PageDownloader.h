#pragma once

#include <QCoro/QCoroTask>

#include <QtCore/QByteArray>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkRequest>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

class QHostAddress;
class QNetworkAccessManager;

namespace ovrin {

/// Brings pages and photos here over HTTP, within bounds.
///
/// Redirects lead from http to http or https and from https to https, at most ten times, and never from the
/// public internet into a private network. Cookies are neither kept nor sent; what an address holds in
/// credentials stays with its own host. Must outlive the tasks it has started, as must the network handed in.
class PageDownloader
{
public:
    struct Limits
    {
        /// Longest silence of a site, and longest time for one page or photo with all its redirects.
        std::chrono::milliseconds silence = std::chrono::seconds(30);
        std::chrono::milliseconds whole = std::chrono::minutes(3);
        qint64 pageBytes = qint64(32) * 1024 * 1024;
        qint64 photoBytes = qint64(64) * 1024 * 1024;
        int redirects = 10;
    };

    using AddressRule = std::function<bool(const QHostAddress&)>;

    struct Page
    {
        /// The body as it came, decompressed.
        QByteArray html;
        /// Where it was found in the end.
        QUrl url;
    };

    explicit PageDownloader(QNetworkAccessManager& network);
    /// `isPrivate` says which addresses the public internet may not lead to.
    PageDownloader(QNetworkAccessManager& network, Limits limits, AddressRule isPrivate);

    /// The page at `url`. Throws RecipeImportError, TransportError, or ImportCancelled once `stop` is
    /// requested.
    QCoro::Task<Page> page(QUrl url, std::stop_token stop);

    /// The photo that the page at `source` shows under `url` (http, https or data). Throws like `page`.
    QCoro::Task<QByteArray> photo(QUrl url, std::optional<QUrl> source, std::stop_token stop);

private:
    QCoro::Task<Page> fetch(QUrl url, QNetworkRequest request, qint64 maxBytes, bool mayBePrivate,
                            std::stop_token stop);

    QNetworkAccessManager& m_network;
    Limits m_limits;
    AddressRule m_isPrivate;
};

} // namespace ovrin
