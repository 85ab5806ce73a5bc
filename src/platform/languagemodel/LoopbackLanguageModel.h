#pragma once

#include "import/document/LanguageModel.h"

#include <QtCore/QList>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>

#include <chrono>

namespace ovrin {

/// A language model behind a server on this machine's loopback interface that speaks the common
/// chat-completions protocol with a JSON-schema response format (`GET /v1/models`, `POST
/// /v1/chat/completions`). No other host is ever asked, whatever a server answers. A server that is not there
/// costs next to nothing.
class LoopbackLanguageModel : public LanguageModel
{
public:
    struct Limits
    {
        /// For a server to say that it is there.
        std::chrono::milliseconds greeting{400};
        /// For an answer.
        std::chrono::milliseconds answer{90'000};
    };

    /// `address` is the user's setting ("http://127.0.0.1:8080", "localhost:8080"); empty means the usual
    /// ports. An address that is not on loopback is not asked, and no other one either.
    explicit LoopbackLanguageModel(const QString& address = {});
    LoopbackLanguageModel(const QString& address, Limits limits);

    QCoro::Task<std::optional<QByteArray>> respond(QString instructions, QString prompt, QJsonObject schema,
                                                   std::stop_token stop) override;

    /// Why a server at `address` would not be asked, for a person; empty when it would, or when none is
    /// named.
    static QString refusal(const QString& address);

    /// The servers that are asked, in order.
    const QList<QUrl>& servers() const { return m_servers; }

private:
    struct Session;

    QCoro::Task<std::optional<Session>> session(std::stop_token stop);
    QCoro::Task<std::optional<QByteArray>> exchange(QUrl url, QByteArray body, std::chrono::milliseconds time,
                                                    std::stop_token stop);

    QNetworkAccessManager m_network;
    QList<QUrl> m_servers;
    Limits m_limits;
};

} // namespace ovrin
