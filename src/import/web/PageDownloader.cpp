#include "import/web/PageDownloader.h"

#include "import/web/AddressGuard.h"
#include "import/web/HttpTransfer.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroSignal>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFuture>
#include <QtCore/QPromise>

#include <algorithm>
#include <memory>

namespace ovrin {
namespace {

// A desktop browser's name, so that sites serve their full page.
constexpr auto userAgent =
    "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 (KHTML, like Gecko) "
    "Version/18.0 Safari/605.1.15";
constexpr auto acceptedTypes = "text/html,application/xhtml+xml";

struct DeleteLater
{
    void operator()(QObject* object) const { object->deleteLater(); }
};

QNetworkRequest plainRequest()
{
    QNetworkRequest request;
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute}) {
        request.setAttribute(attribute, QNetworkRequest::Manual);
    }
    // The body is bounded as it is read, however well it was compressed.
    request.setDecompressedSafetyCheckThreshold(-1);
    return request;
}

/// Leads `request` to `url`. Credentials in it go into a header of this one request, so that they are sent to
/// no other host and kept by nobody.
void setAddress(QNetworkRequest& request, const QUrl& url)
{
    request.setUrl(url.adjusted(QUrl::RemoveUserInfo));
    const QString credentials = url.userName(QUrl::FullyDecoded) + u':' + url.password(QUrl::FullyDecoded);
    request.setRawHeader("Authorization", url.userInfo().isEmpty()
                                              ? QByteArray()
                                              : QByteArray("Basic " + credentials.toUtf8().toBase64()));
}

/// Runs `transfer` to its end, which a stop brings nearer. Throws what it failed with.
QCoro::Task<> run(HttpTransfer* transfer, std::stop_token stop)
{
    // A stop may be requested from any thread; the transfer lives in this one.
    const std::stop_callback onStop(stop, [transfer] {
        QMetaObject::invokeMethod(transfer, &HttpTransfer::cancel, Qt::QueuedConnection);
    });
    transfer->start();
    co_await qCoro(transfer, &HttpTransfer::finished);
    if (transfer->error()) {
        std::rethrow_exception(transfer->error());
    }
}

QCoro::Task<bool> isOnPrivateNetwork(QString host, PageDownloader::AddressRule isPrivate)
{
    const auto answer = std::make_shared<QPromise<bool>>();
    answer->start();
    QHostInfo::lookupHost(host, [answer, isPrivate](const QHostInfo& found) {
        const auto addresses = found.addresses();
        answer->addResult(std::any_of(addresses.begin(), addresses.end(), isPrivate));
        answer->finish();
    });
    const bool anyPrivate = co_await answer->future();
    co_return anyPrivate;
}

} // namespace

PageDownloader::PageDownloader(QNetworkAccessManager& network)
    : PageDownloader(network, Limits(), isPrivateAddress)
{
}

PageDownloader::PageDownloader(QNetworkAccessManager& network, Limits limits, AddressRule isPrivate)
    : m_network(network)
    , m_limits(limits)
    , m_isPrivate(std::move(isPrivate))
{
}

QCoro::Task<PageDownloader::Page> PageDownloader::page(QUrl url, std::stop_token stop)
{
    if (!isWebAddress(url)) {
        throw TransportError(TransportError::Case::UnsupportedAddress);
    }
    QNetworkRequest request = plainRequest();
    request.setRawHeader("User-Agent", userAgent);
    request.setRawHeader("Accept", acceptedTypes);
    // The user has named this address, wherever it leads.
    Page found = co_await fetch(url, request, m_limits.pageBytes, true, stop);
    co_return found;
}

QCoro::Task<QByteArray> PageDownloader::photo(QUrl url, std::optional<QUrl> source, std::stop_token stop)
{
    if (!isWebAddress(url) && url.scheme() != u"data") {
        throw TransportError(TransportError::Case::UnsupportedAddress);
    }
    QNetworkRequest request = plainRequest();
    bool mayBePrivate = false;
    if (source) {
        request.setRawHeader("Referer", source->toEncoded(QUrl::FullyEncoded | QUrl::RemoveUserInfo));
        mayBePrivate = co_await isOnPrivateNetwork(source->host(QUrl::FullyEncoded), m_isPrivate);
    }
    Page found = co_await fetch(url, request, m_limits.photoBytes, mayBePrivate, stop);
    co_return std::move(found.html);
}

QCoro::Task<PageDownloader::Page> PageDownloader::fetch(QUrl url, QNetworkRequest request, qint64 maxBytes,
                                                        bool mayBePrivate, std::stop_token stop)
{
    const QDeadlineTimer deadline(m_limits.whole);
    for (int redirects = 0; redirects <= m_limits.redirects; ++redirects) {
        if (stop.stop_requested()) {
            throw ImportCancelled();
        }
        setAddress(request, url);
        const HttpTransfer::Bounds bounds{maxBytes, m_limits.silence,
                                          std::chrono::milliseconds(deadline.remainingTime()), mayBePrivate,
                                          m_isPrivate};
        const std::unique_ptr<HttpTransfer, DeleteLater> transfer(
            new HttpTransfer(m_network, request, bounds));
        co_await run(transfer.get(), stop);
        if (!transfer->redirect()) {
            Page page{transfer->body(), url};
            co_return page;
        }
        url = redirectTarget(url, *transfer->redirect());
        mayBePrivate = mayBePrivate && transfer->isPrivate();
    }
    throw TransportError(TransportError::Case::TooManyRedirects);
}

} // namespace ovrin
