#include "platform/languagemodel/LoopbackLanguageModel.h"

#include "platform/languagemodel/ChatCompletion.h"

#include <QCoro/QCoroSignal>

#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>

#include <functional>

namespace ovrin {

namespace {

/// The address on loopback that `text` means; nothing for any other. A name is never looked up: only
/// "localhost" is one, and it means what it says.
std::optional<QUrl> onLoopback(const QString& text)
{
    QUrl url(text.contains(u"://") ? text : QStringLiteral("http://") + text);
    if (url.host() == u"localhost") {
        url.setHost(QStringLiteral("127.0.0.1"));
    }
    const QHostAddress host(url.host());
    return url.scheme() == u"http" && !host.isNull() && host.isLoopback() ? std::optional(url) : std::nullopt;
}

QUrl endpoint(QUrl server, const char16_t* path)
{
    server.setPath(QString::fromUtf16(path));
    server.setQuery(QString());
    return server;
}

} // namespace

/// A server that is there, and the model it offers first.
struct LoopbackLanguageModel::Session
{
    QUrl server;
    QString model;
};

LoopbackLanguageModel::LoopbackLanguageModel(const QString& address)
    : LoopbackLanguageModel(address, Limits())
{
}

LoopbackLanguageModel::LoopbackLanguageModel(const QString& address, Limits limits)
    : m_limits(limits)
{
    // A proxy is another host.
    m_network.setProxy(QNetworkProxy::NoProxy);
    const QStringList addresses = address.isEmpty() ? QStringList{QStringLiteral("http://127.0.0.1:11434"),
                                                                  QStringLiteral("http://127.0.0.1:8080")}
                                                    : QStringList{address};
    for (const QString& server : addresses) {
        if (const auto url = onLoopback(server)) {
            m_servers.append(*url);
        }
    }
}

QString LoopbackLanguageModel::refusal(const QString& address)
{
    if (address.isEmpty() || onLoopback(address)) {
        return {};
    }
    return QStringLiteral("The language model at “%1” is not asked, because it is not on this computer.")
        .arg(address);
}

QCoro::Task<std::optional<QByteArray>> LoopbackLanguageModel::exchange(QUrl url, QByteArray body,
                                                                       std::chrono::milliseconds time,
                                                                       std::stop_token stop)
{
    QNetworkRequest request(url);
    // A redirect is an answer like any other that is not wanted.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    const std::unique_ptr<QNetworkReply> reply(body.isEmpty() ? m_network.get(request)
                                                              : m_network.post(request, body));
    // Once it is read, whatever more comes is not kept.
    reply->setReadBufferSize(ChatCompletion::largestAnswer + 1);
    QTimer::singleShot(time, reply.get(), &QNetworkReply::abort);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [answer = reply.get()] {
        if (answer->bytesAvailable() > ChatCompletion::largestAnswer) {
            answer->abort();
        }
    });
    const std::stop_callback<std::function<void()>> stopped(std::move(stop), [answer = reply.get()] {
        // Not at once: this may be called from within the reply's own signal.
        QMetaObject::invokeMethod(answer, &QNetworkReply::abort, Qt::QueuedConnection);
    });
    if (!reply->isFinished()) {
        co_await qCoro(reply.get(), &QNetworkReply::finished);
    }
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply->error() != QNetworkReply::NoError || status != 200) {
        co_return std::nullopt;
    }
    co_return reply->readAll();
}

QCoro::Task<std::optional<LoopbackLanguageModel::Session>>
LoopbackLanguageModel::session(std::stop_token stop)
{
    for (const QUrl& server : m_servers) {
        const auto answer = co_await exchange(endpoint(server, u"/v1/models"), {}, m_limits.greeting, stop);
        if (const auto model = answer ? ChatCompletion::firstModel(*answer) : std::nullopt) {
            co_return Session{server, *model};
        }
    }
    co_return std::nullopt;
}

QCoro::Task<std::optional<QByteArray>>
LoopbackLanguageModel::respond(QString instructions, QString prompt, QJsonObject schema, std::stop_token stop)
{
    const auto found = co_await session(stop);
    if (!found || stop.stop_requested()) {
        co_return std::nullopt;
    }
    const auto answer = co_await exchange(endpoint(found->server, u"/v1/chat/completions"),
                                          ChatCompletion::request(found->model, instructions, prompt, schema),
                                          m_limits.answer, stop);
    co_return answer ? ChatCompletion::content(*answer) : std::nullopt;
}

} // namespace ovrin
