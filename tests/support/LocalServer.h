#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include <functional>

namespace ovrin {

/// A web server on loopback that answers, or misbehaves, exactly as a test says.
class LocalServer : public QTcpServer
{
public:
    struct Request
    {
        QByteArray path;
        /// By name in lower case.
        QHash<QByteArray, QByteArray> headers;
        /// As long as "Content-Length" says.
        QByteArray body;
    };
    using Handler = std::function<void(const Request&, QTcpSocket&)>;

    explicit LocalServer(const QHostAddress& address = QHostAddress::LocalHost);

    QUrl url(const QByteArray& path) const;
    void on(const QByteArray& path, Handler handler) { m_handlers[path] = std::move(handler); }
    /// Answers `path` with a whole response; header lines end in "\r\n".
    void serve(const QByteArray& path, const QByteArray& body, const QByteArray& status = "200 OK",
               const QByteArray& headers = {});
    void redirect(const QByteArray& path, const QByteArray& location, const QByteArray& status = "302 Found");

    const QList<Request>& requests() const { return m_requests; }
    int openConnections() const;

private:
    void read(QTcpSocket& socket);

    QHash<QByteArray, Handler> m_handlers;
    QList<Request> m_requests;
};

} // namespace ovrin
