#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include <functional>

namespace ovrin::test {

/// A web server on the loopback with a few pages. What it has no page for stays unanswered for ever.
class PageServer
{
public:
    PageServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection())
                QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(socket); });
        });
    }

    void page(const QByteArray& path, const QByteArray& body, const QByteArray& status = "200 OK",
              const QByteArray& headers = "Content-Type: text/html\r\n")
    {
        m_answers[path] = "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers +
                          "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    }
    QUrl url(const QByteArray& path) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort()) +
                    QString::fromLatin1(path));
    }
    /// Paths asked for so far, queries left out.
    const QList<QByteArray>& requested() const { return m_requested; }
    /// Called with each path as it is asked for.
    std::function<void(const QByteArray& path)> onRequest;

private:
    void answer(QTcpSocket* socket)
    {
        const QByteArray head = socket->readAll();
        const QByteArray path = head.mid(head.indexOf(' ') + 1).split(' ').first().split('?').first();
        m_requested += path;
        if (m_answers.contains(path)) {
            socket->write(m_answers[path]);
            socket->disconnectFromHost();
        }
        if (onRequest)
            onRequest(path);
    }

    QTcpServer m_server;
    QHash<QByteArray, QByteArray> m_answers;
    QList<QByteArray> m_requested;
};

} // namespace ovrin::test
