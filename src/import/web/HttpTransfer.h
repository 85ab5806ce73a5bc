#pragma once

#include "import/error/RecipeImportError.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QHostInfo>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

#include <chrono>
#include <exception>
#include <functional>
#include <optional>

namespace ovrin {

/// One request and its answer, without redirects: looks the host up, refuses where it may not go, reads no
/// more than it may, and gives up in time. For one use; `finished` comes exactly once, never from inside
/// `start`.
class HttpTransfer : public QObject
{
    Q_OBJECT

public:
    struct Bounds
    {
        qint64 maxBytes;
        /// Longest silence, and longest time in all.
        std::chrono::milliseconds silence;
        std::chrono::milliseconds whole;
        /// Whether the host may be on a private network.
        bool mayBePrivate;
        std::function<bool(const QHostAddress&)> isPrivate;
    };

    HttpTransfer(QNetworkAccessManager& network, const QNetworkRequest& request, Bounds bounds);
    ~HttpTransfer() override;

    void start();
    /// Ends the transfer with ImportCancelled.
    void cancel();

    /// After `finished`: why there is no answer, if there is none.
    std::exception_ptr error() const { return m_error; }
    /// Where the answer sends the caller on, not resolved and not checked.
    std::optional<QUrl> redirect() const { return m_redirect; }
    /// The body, decompressed.
    QByteArray body() const { return m_body; }
    /// Whether the host that answered is on a private network.
    bool isPrivate() const { return m_isPrivate; }

Q_SIGNALS:
    void finished();

private:
    void hostFound(const QHostInfo& host);
    void send();
    void readHead();
    void readBody();
    void replyFinished();
    template<typename Error>
    void fail(const Error& error);
    void finish();

    QPointer<QNetworkAccessManager> m_network;
    QNetworkRequest m_request;
    Bounds m_bounds;
    QPointer<QNetworkReply> m_reply;
    QTimer m_silence;
    QTimer m_whole;
    QByteArray m_body;
    std::optional<QUrl> m_redirect;
    std::exception_ptr m_error;
    int m_lookup = -1;
    bool m_isPrivate = false;
    bool m_done = false;
};

} // namespace ovrin
