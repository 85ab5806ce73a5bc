#include "platform/languagemodel/ChatCompletion.h"

#include "json/JsonDocument.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace ovrin {

namespace {

QJsonObject message(const char16_t* role, const QString& content)
{
    return {{QStringLiteral("role"), QString::fromUtf16(role)}, {QStringLiteral("content"), content}};
}

} // namespace

QByteArray ChatCompletion::request(const QString& model, const QString& instructions, const QString& prompt,
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

std::optional<QString> ChatCompletion::firstModel(const QByteArray& answer)
{
    const auto models = JsonDocument::parse(answer, largestAnswer);
    const JsonValue name = models ? models->root()["data"].at(0)["id"] : JsonValue();
    return name.isString() ? std::optional(name.string()) : std::nullopt;
}

std::optional<QByteArray> ChatCompletion::content(const QByteArray& answer)
{
    const auto completion = JsonDocument::parse(answer, largestAnswer);
    const JsonValue text =
        completion ? completion->root()["choices"].at(0)["message"]["content"] : JsonValue();
    return text.isString() ? std::optional(text.string().toUtf8()) : std::nullopt;
}

} // namespace ovrin
