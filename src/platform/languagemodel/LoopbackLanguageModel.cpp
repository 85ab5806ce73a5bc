#include "platform/languagemodel/LoopbackLanguageModel.h"

#include "json/JsonDocument.h"

#include <QCoro/QCoroSignal>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>

#include <functional>

namespace ovrin {

namespace {

constexpr qint64 largestAnswer = 4LL * 1024 * 1024;

/// The address on loopback that `url` means; nothing for any other. A name is never looked up: only
/// "localhost" is one, and it means what it says.
std::optional<QUrl> onLoopback(QUrl url)
{
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

QJsonObject message(const char16_t* role, const QString& content)
{
    return {{QStringLiteral("role"), QString::fromUtf16(role)}, {QStringLiteral("content"), content}};
}

QByteArray request(const QString& model, const QString& instructions, const QString& prompt,
                   const QJsonObject& schema)
{
    const QString schemaText = QString::fromUtf8(QJsonDocument(schema).toJson(QJsonDocument::Compact));
    const QJsonObject body{
        {QStringLiteral("model"), model},
        {QStringLiteral("stream"), false},
        {QStringLiteral("messages"),
         QJsonArray{
             message(u"system", instructions),
             message(u"system", QStringLiteral("Answer with JSON that fits this schema:\n") + schemaText),
             message(u"user", prompt)}},
        {QStringLiteral("response_format"),
         QJsonObject{
             {QStringLiteral("type"), QStringLiteral("json_schema")},
             {QStringLiteral("json_schema"), QJsonObject{{QStringLiteral("name"), QStringLiteral("recipe")},
                                                         {QStringLiteral("strict"), true},
                                                         {QStringLiteral("schema"), schema}}}}},
    };
    return QJsonDocument(body).toJson(QJsonDocument::Compact);
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
        if (const auto url = onLoopback(QUrl(server))) {
            m_servers.append(*url);
        }
    }
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
    reply->setReadBufferSize(largestAnswer + 1);
    QTimer::singleShot(time, reply.get(), &QNetworkReply::abort);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [answer = reply.get()] {
        if (answer->bytesAvailable() > largestAnswer) {
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
        const auto models = answer ? JsonDocument::parse(*answer, largestAnswer) : std::nullopt;
        if (models && models->root()["data"].at(0)["id"].isString()) {
            co_return Session{server, models->root()["data"].at(0)["id"].string()};
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
    const auto answer =
        co_await exchange(endpoint(found->server, u"/v1/chat/completions"),
                          request(found->model, instructions, prompt, schema), m_limits.answer, stop);
    const auto completion = answer ? JsonDocument::parse(*answer, largestAnswer) : std::nullopt;
    if (!completion) {
        co_return std::nullopt;
    }
    const JsonValue content = completion->root()["choices"].at(0)["message"]["content"];
    co_return content.isString() ? std::optional(content.string().toUtf8()) : std::nullopt;
}

} // namespace ovrin
