#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace ovrin {

/// The bodies of the chat-completions protocol: what is asked, and what foreign answers say.
namespace ChatCompletion {

/// Bytes of an answer beyond which it is none.
inline constexpr qint64 largestAnswer = 4LL * 1024 * 1024;

QByteArray request(const QString& model, const QString& instructions, const QString& prompt,
                   const QJsonObject& schema);

/// The name of the first model in an answer to `GET /v1/models`.
std::optional<QString> firstModel(const QByteArray& answer);

/// What the model said, in an answer to `POST /v1/chat/completions`.
std::optional<QByteArray> content(const QByteArray& answer);

} // namespace ChatCompletion

} // namespace ovrin
