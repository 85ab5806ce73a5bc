#pragma once

#include <QCoro/QCoroTask>

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>
#include <stop_token>

namespace ovrin {

/// The on-device language model, where there is one.
class LanguageModel
{
public:
    virtual ~LanguageModel() = default;

    /// One answer to one prompt in a session of its own, as JSON that claims to fit `schema`. Nothing when no
    /// model is available, it fails or takes too long, or `stop` is requested. Never throws.
    virtual QCoro::Task<std::optional<QByteArray>> respond(QString instructions, QString prompt,
                                                           QJsonObject schema, std::stop_token stop) = 0;
};

/// Where there is no language model.
class NullLanguageModel : public LanguageModel
{
public:
    QCoro::Task<std::optional<QByteArray>> respond(QString instructions, QString prompt, QJsonObject schema,
                                                   std::stop_token stop) override;
};

} // namespace ovrin
