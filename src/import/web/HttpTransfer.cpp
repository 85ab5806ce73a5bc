#include "import/web/HttpTransfer.h"

#include <QtCore/QMetaObject>

#include <algorithm>

namespace ovrin {
namespace {

constexpr qint64 readAhead = qint64(1024) * 1024;

TransportError::Case reasonOf(QNetworkReply::NetworkError error)
{
    using Case = TransportError::Case;
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::UnknownNetworkError:
        return Case::Refused;
    case QNetworkReply::RemoteHostClosedError:
        return Case::ConnectionLost;
    case QNetworkReply::HostNotFoundError:
        return Case::HostNotFound;
    case QNetworkReply::TimeoutError:
        return Case::TimedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return Case::BadCertificate;
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
        return Case::NoNetwork;
    default:
        return Case::NoAnswer;
    }
}

bool isRedirect(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

} // namespace

HttpTransfer::HttpTransfer(QNetworkAccessManager& network, const QNetworkRequest& request, Bounds bounds)
    : m_network(&network)
    , m_request(request)
    , m_bounds(std::move(bounds))
{
    for (QTimer* timer : {&m_silence, &m_whole}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        connect(timer, &QTimer::timeout, this,
                [this] { fail(TransportError(TransportError::Case::TimedOut)); });
    }
}

HttpTransfer::~HttpTransfer()
{
    m_done = true;
    if (m_lookup != -1) {
        QHostInfo::abortHostLookup(m_lookup);
    }
    delete m_reply;
}

void HttpTransfer::start()
{
    m_silence.start(m_bounds.silence);
    m_whole.start(m_bounds.whole);
    if (m_request.url().scheme() == u"data") {
        send();
        return;
    }
    // The look-up fills the cache that the connection reads right after it, so that a name cannot lead
    // somewhere else between being checked and being used.
    m_lookup =
        QHostInfo::lookupHost(m_request.url().host(QUrl::FullyEncoded), this, &HttpTransfer::hostFound);
}

void HttpTransfer::cancel()
{
    fail(ImportCancelled());
}

void HttpTransfer::hostFound(const QHostInfo& host)
{
    m_lookup = -1;
    if (m_done) {
        return;
    }
    const QList<QHostAddress> addresses = host.addresses();
    if (addresses.isEmpty()) {
        fail(TransportError(TransportError::Case::HostNotFound));
        return;
    }
    m_isPrivate = std::any_of(addresses.begin(), addresses.end(), m_bounds.isPrivate);
    if (m_isPrivate && !m_bounds.mayBePrivate) {
        fail(TransportError(TransportError::Case::PrivateAddress));
        return;
    }
    send();
}

void HttpTransfer::send()
{
    if (!m_network) {
        fail(ImportCancelled());
        return;
    }
    m_reply = m_network->get(m_request);
    m_reply->setReadBufferSize(readAhead);
    const auto alive = [this] { m_silence.start(); };
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpTransfer::readHead);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpTransfer::readBody);
    connect(m_reply, &QNetworkReply::encrypted, this, alive);
    connect(m_reply, &QNetworkReply::finished, this, &HttpTransfer::replyFinished);
    connect(m_reply, &QObject::destroyed, this, [this] { fail(ImportCancelled()); });
}

void HttpTransfer::readHead()
{
    m_silence.start();
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (m_done || status == 0) {
        return;
    }
    const QByteArray location = m_reply->rawHeader("Location");
    if (isRedirect(status) && !location.isEmpty()) {
        m_redirect = QUrl(QString::fromUtf8(location), QUrl::TolerantMode);
        finish();
    } else if (status < 200 || status > 299) {
        fail(RecipeImportError::badResponse(status));
    } else if (m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > m_bounds.maxBytes) {
        fail(RecipeImportError::tooLarge());
    }
}

void HttpTransfer::readBody()
{
    if (m_done) {
        return;
    }
    m_silence.start();
    m_body += m_reply->read(m_bounds.maxBytes + 1 - m_body.size());
    if (m_body.size() > m_bounds.maxBytes) {
        fail(RecipeImportError::tooLarge());
    }
}

void HttpTransfer::replyFinished()
{
    if (!m_done) {
        readHead();
    }
    // What is left unread after the last signal; a body of unknown length may arrive in pieces of the buffer.
    while (!m_done && m_reply->bytesAvailable() > 0) {
        const qsizetype before = m_body.size();
        readBody();
        if (m_body.size() == before) {
            break;
        }
    }
    if (!m_done && m_reply->error() != QNetworkReply::NoError) {
        fail(TransportError(reasonOf(m_reply->error())));
    }
    if (!m_done) {
        finish();
    }
}

template<typename Error>
void HttpTransfer::fail(const Error& error)
{
    if (!m_done) {
        m_error = std::make_exception_ptr(error);
        m_body.clear();
        finish();
    }
}

void HttpTransfer::finish()
{
    m_done = true;
    m_silence.stop();
    m_whole.stop();
    if (m_reply) {
        m_reply->disconnect(this);
        // Closes the connection when the answer has not been read to its end. Not from inside one of the
        // reply's own signals, nor where it has or will have an error of its own, as with a bad status: it
        // would complain on standard error. What is left of such an answer waits in a bounded buffer until
        // the connection goes with the network.
        const auto close = [reply = m_reply.data()] {
            const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
            if (reply->error() == QNetworkReply::NoError && status < 400)
                reply->abort();
            reply->deleteLater();
        };
        QMetaObject::invokeMethod(m_reply, close, Qt::QueuedConnection);
        m_reply.clear();
    }
    QMetaObject::invokeMethod(this, &HttpTransfer::finished, Qt::QueuedConnection);
}

} // namespace ovrin
