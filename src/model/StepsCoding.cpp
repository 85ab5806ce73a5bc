#include "model/StepsCoding.h"

#include "json/JsonDocument.h"
#include "json/JsonWriter.h"

namespace ovrin {

namespace {

/// Far above any method ever written; a bound for bytes that another program may have put into the library.
constexpr qsizetype maxStepsBytes = 67'108'864;

std::optional<RecipeStep> readStep(JsonValue value)
{
    const auto id = uuidFromText(value["id"].string());
    auto paragraphs = readStrings(value["paragraphs"]);
    const JsonValue title = value["title"];
    const bool titled = !title.isMissing() && !title.isNull();
    if (!id || !paragraphs || (titled && !title.isString()))
        return std::nullopt;
    return RecipeStep{*id, titled ? std::optional(title.string()) : std::nullopt, std::move(*paragraphs)};
}

} // namespace

QByteArray encodeSteps(const QList<RecipeStep>& steps)
{
    JsonWriter writer;
    writeSteps(writer, steps);
    return writer.bytes();
}

void writeSteps(JsonWriter& writer, const QList<RecipeStep>& steps)
{
    writer.beginArray();
    for (const RecipeStep& step : steps) {
        writer.beginObject().key("id").string(uuidText(step.id));
        if (step.title)
            writer.key("title").string(*step.title);
        writer.key("paragraphs");
        writeStrings(writer, step.paragraphs);
        writer.endObject();
    }
    writer.endArray();
}

void writeStrings(JsonWriter& writer, const QStringList& strings)
{
    writer.beginArray();
    for (const QString& string : strings)
        writer.string(string);
    writer.endArray();
}

std::optional<QList<RecipeStep>> decodeSteps(const QByteArray& json)
{
    const auto document = JsonDocument::parse(json, maxStepsBytes);
    return document ? readSteps(document->root()) : std::nullopt;
}

std::optional<QList<RecipeStep>> readSteps(JsonValue value)
{
    if (!value.isArray())
        return std::nullopt;
    QList<RecipeStep> steps;
    for (const JsonValue element : value) {
        auto step = readStep(element);
        if (!step)
            return std::nullopt;
        steps.append(std::move(*step));
    }
    return steps;
}

std::optional<QStringList> readStrings(JsonValue value)
{
    if (!value.isArray())
        return std::nullopt;
    QStringList strings;
    for (const JsonValue element : value) {
        if (!element.isString())
            return std::nullopt;
        strings.append(element.string());
    }
    return strings;
}

QString uuidText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> uuidFromText(const QString& text)
{
    // QUuid also reads braces.
    if (text.size() != 36 || text.front() == u'{')
        return std::nullopt;
    const QUuid id = QUuid::fromString(text);
    const bool isZero = text == QStringLiteral("00000000-0000-0000-0000-000000000000");
    return isZero || !id.isNull() ? std::optional(id) : std::nullopt;
}

} // namespace ovrin
