#include "support/LocalServer.h"

#include <algorithm>

namespace ovrin {

LocalServer::LocalServer(const QHostAddress& address)
{
    listen(address);
    connect(this, &QTcpServer::newConnection, this, [this] {
        QTcpSocket* const socket = nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
}

QUrl LocalServer::url(const QByteArray& path) const
{
    return QUrl(QStringLiteral("http://%1:%2%3")
                    .arg(serverAddress().toString())
                    .arg(serverPort())
                    .arg(QString::fromUtf8(path)));
}

void LocalServer::serve(const QByteArray& path, const QByteArray& body, const QByteArray& status,
                        const QByteArray& headers)
{
    on(path, [=](const Request&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                     "\r\n" + headers + "\r\n" + body);
    });
}

void LocalServer::redirect(const QByteArray& path, const QByteArray& location, const QByteArray& status)
{
    serve(path, {}, status, "Location: " + location + "\r\n");
}

int LocalServer::openConnections() const
{
    const auto sockets = findChildren<QTcpSocket*>();
    return int(std::count_if(sockets.begin(), sockets.end(), [](QTcpSocket* socket) {
        return socket->state() == QTcpSocket::ConnectedState;
    }));
}

void LocalServer::read(QTcpSocket& socket)
{
    const QByteArray seen = socket.peek(1 << 20);
    const qsizetype end = seen.indexOf("\r\n\r\n");
    if (end < 0) {
        return;
    }
    const QList<QByteArray> lines = seen.left(end).split('\n');
    Request request;
    request.path = lines.first().split(' ').value(1);
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        request.headers[line.left(colon).toLower()] = line.mid(colon + 1).trimmed();
    }
    const qsizetype bodySize = request.headers.value("content-length").toLongLong();
    if (seen.size() < end + 4 + bodySize) {
        return;
    }
    request.body = socket.read(end + 4 + bodySize).mid(end + 4);
    m_requests << request;
    if (const auto handler = m_handlers.value(request.path)) {
        handler(request, socket);
    } else {
        socket.write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
    }
}

} // namespace ovrin
