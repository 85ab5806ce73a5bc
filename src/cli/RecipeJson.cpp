#include "cli/RecipeJson.h"

#include "model/StepsCoding.h"
#include "json/JsonWriter.h"

namespace ovrin::cli {

namespace {

QString isoText(Instant instant)
{
    return toDateTime(instant).toString(Qt::ISODateWithMs);
}

void writeMinutes(JsonWriter& writer, std::string_view key, std::optional<qint64> minutes)
{
    if (minutes)
        writer.key(key).integer(*minutes);
}

} // namespace

QByteArray toJson(const Recipe& recipe)
{
    JsonWriter writer;
    writer.beginObject();
    writer.key("id").string(uuidText(recipe.id()));
    writer.key("title").string(recipe.title());
    writer.key("author").string(recipe.author());
    writer.key("publisher").string(recipe.publisher());
    writer.key("summary").string(recipe.summary());
    if (recipe.sourceAddress())
        writer.key("sourceURL").string(*recipe.sourceAddress());
    if (recipe.tintHex())
        writer.key("tintHex").string(*recipe.tintHex());
    writer.key("yield").string(recipe.yield());
    writeMinutes(writer, "prepMinutes", recipe.prepMinutes());
    writeMinutes(writer, "cookMinutes", recipe.cookMinutes());
    writeMinutes(writer, "totalMinutes", recipe.totalMinutes());
    writer.key("ingredients");
    writeStrings(writer, recipe.ingredients());
    writer.key("stepsData");
    writeSteps(writer, recipe.steps());
    writer.key("notes").string(recipe.notes());
    writer.key("isSaved").boolean(recipe.isSaved());
    writer.key("scale").number(recipe.scale());
    writer.key("createdAt").string(isoText(recipe.createdAt()));
    if (recipe.lastCookedAt())
        writer.key("lastCookedAt").string(isoText(*recipe.lastCookedAt()));
    writer.key("timesCooked").integer(recipe.timesCooked());
    writer.endObject();
    return writer.bytes();
}

} // namespace ovrin::cli
