#include "model/store/RecordSql.h"

#include "model/StepsCoding.h"
#include "json/JsonDocument.h"
#include "json/JsonWriter.h"

#include <string>

namespace ovrin {

namespace {

using sqlite::Connection;
using sqlite::Statement;

constexpr std::string_view listSql =
    "SELECT rowid, EXISTS (SELECT 1 FROM Photo WHERE Photo.id = Recipe.id), id, title, author, publisher, "
    "sourceURL, tintHex, yield, prepMinutes, cookMinutes, totalMinutes, ingredients, isSaved, scale, "
    "createdAt, "
    "lastCookedAt, timesCooked FROM Recipe";

constexpr qsizetype maxIngredientsBytes = 67'108'864;

QByteArray ingredientsJson(const QStringList& lines)
{
    JsonWriter writer;
    writeStrings(writer, lines);
    return writer.bytes();
}

Instant instantFrom(qint64 microseconds)
{
    return Instant(std::chrono::microseconds(microseconds));
}

qint64 microseconds(Instant instant)
{
    return instant.time_since_epoch().count();
}

/// Nothing for a row whose id is no UUID, which only another program can have written.
std::optional<ListedRecipe> readListed(Statement& row)
{
    const auto id = uuidFromText(row.text(2));
    if (!id)
        return std::nullopt;
    ListedRecipe listed;
    listed.row = row.integer(0);
    listed.hasImage = row.integer(1) != 0;
    RecipeRecord& record = listed.record;
    record.id = *id;
    record.title = row.text(3);
    record.author = row.text(4);
    record.publisher = row.text(5);
    record.sourceURL = row.optionalText(6);
    record.tintHex = row.optionalText(7);
    record.yield = row.text(8);
    record.prepMinutes = row.optionalInteger(9);
    record.cookMinutes = row.optionalInteger(10);
    record.totalMinutes = row.optionalInteger(11);
    listed.ingredients = row.blob(12);
    record.isSaved = row.integer(13) != 0;
    record.scale = row.real(14);
    record.createdAt = instantFrom(row.integer(15));
    if (const auto cooked = row.optionalInteger(16))
        record.lastCookedAt = instantFrom(*cooked);
    record.timesCooked = row.integer(17);
    return listed;
}

void bindAttribute(Statement& statement, int parameter, const RecipeRecord& record, RecipeAttribute attribute)
{
    switch (attribute) {
    case RecipeAttribute::Id:
        statement.bind(parameter, uuidText(record.id));
        break;
    case RecipeAttribute::Title:
        statement.bind(parameter, record.title);
        break;
    case RecipeAttribute::Author:
        statement.bind(parameter, record.author);
        break;
    case RecipeAttribute::Publisher:
        statement.bind(parameter, record.publisher);
        break;
    case RecipeAttribute::Summary:
        statement.bind(parameter, record.summary);
        break;
    case RecipeAttribute::SourceURL:
        statement.bind(parameter, record.sourceURL);
        break;
    case RecipeAttribute::ImageData:
        break;
    case RecipeAttribute::TintHex:
        statement.bind(parameter, record.tintHex);
        break;
    case RecipeAttribute::Yield:
        statement.bind(parameter, record.yield);
        break;
    case RecipeAttribute::PrepMinutes:
        statement.bind(parameter, record.prepMinutes);
        break;
    case RecipeAttribute::CookMinutes:
        statement.bind(parameter, record.cookMinutes);
        break;
    case RecipeAttribute::TotalMinutes:
        statement.bind(parameter, record.totalMinutes);
        break;
    case RecipeAttribute::Ingredients:
        statement.bindText(parameter, ingredientsJson(record.ingredients));
        break;
    case RecipeAttribute::StepsData:
        statement.bindBlob(parameter, record.stepsData);
        break;
    case RecipeAttribute::Notes:
        statement.bind(parameter, record.notes);
        break;
    case RecipeAttribute::IsSaved:
        statement.bind(parameter, qint64(record.isSaved));
        break;
    case RecipeAttribute::Scale:
        statement.bind(parameter, record.scale);
        break;
    case RecipeAttribute::CreatedAt:
        statement.bind(parameter, microseconds(record.createdAt));
        break;
    case RecipeAttribute::LastCookedAt:
        statement.bind(parameter, record.lastCookedAt ? std::optional(microseconds(*record.lastCookedAt))
                                                      : std::nullopt);
        break;
    case RecipeAttribute::TimesCooked:
        statement.bind(parameter, record.timesCooked);
        break;
    }
}

/// The named attributes that are columns of the main table.
std::vector<std::pair<const char*, RecipeAttribute>> columns(RecipeAttributes attributes)
{
    std::vector<std::pair<const char*, RecipeAttribute>> result;
    for (std::size_t i = 0; i < recipeAttributeNames.size(); ++i) {
        const auto attribute = static_cast<RecipeAttribute>(1U << i);
        if (attributes.testFlag(attribute) && attribute != RecipeAttribute::ImageData)
            result.emplace_back(recipeAttributeNames[i], attribute);
    }
    return result;
}

void writePhoto(Connection& connection, const QUuid& id, const std::optional<QByteArray>& jpeg)
{
    if (!jpeg) {
        connection.kept("DELETE FROM Photo WHERE id = ?").bind(0, uuidText(id)).run();
        return;
    }
    connection
        .kept("INSERT INTO Photo (id, imageData) VALUES (?, ?) "
              "ON CONFLICT (id) DO UPDATE SET imageData = excluded.imageData")
        .bind(0, uuidText(id))
        .bindBlob(1, *jpeg)
        .run();
}

const std::string& insertSql()
{
    static const std::string sql = [] {
        std::string names;
        std::string marks;
        for (const auto& [name, attribute] : columns(allRecipeAttributes)) {
            names += (names.empty() ? "" : ", ") + std::string(name);
            marks += marks.empty() ? "?" : ", ?";
        }
        return "INSERT INTO Recipe (" + names + ") VALUES (" + marks + ")";
    }();
    return sql;
}

} // namespace

const std::string_view fullSql =
    "SELECT rowid, 0, id, title, author, publisher, sourceURL, tintHex, yield, prepMinutes, cookMinutes, "
    "totalMinutes, ingredients, isSaved, scale, createdAt, lastCookedAt, timesCooked, summary, stepsData, "
    "notes "
    "FROM Recipe";

std::optional<RecipeRecord> readFull(Statement& row)
{
    auto listed = readListed(row);
    if (!listed)
        return std::nullopt;
    listed->record.summary = row.text(18);
    listed->record.stepsData = row.blob(19);
    listed->record.notes = row.text(20);
    return std::move(listed->record);
}

QStringList ingredientsFrom(QByteArrayView json)
{
    const auto document = JsonDocument::parse(json, maxIngredientsBytes);
    if (auto lines = document ? readStrings(document->root()) : std::nullopt)
        return *lines;
    // Not written by us; shown as it is rather than hidden and then overwritten.
    return {QString::fromUtf8(json)};
}

std::vector<ListedRecipe> listRecipes(Connection& connection)
{
    std::vector<ListedRecipe> recipes;
    Statement rows = connection.prepare(std::string(listSql) + " ORDER BY rowid");
    while (rows.step()) {
        if (auto listed = readListed(rows))
            recipes.push_back(std::move(*listed));
    }
    return recipes;
}

std::optional<ListedRecipe> listRecipe(Connection& connection, const QUuid& id)
{
    Statement& row = connection.kept(std::string(listSql) + " WHERE id = ?").bind(0, uuidText(id));
    auto listed = row.step() ? readListed(row) : std::nullopt;
    row.reset();
    return listed;
}

std::optional<RecipeDetails> readDetails(Connection& connection, const QUuid& id)
{
    Statement& row =
        connection.kept("SELECT summary, stepsData, notes FROM Recipe WHERE id = ?").bind(0, uuidText(id));
    std::optional<RecipeDetails> details;
    if (row.step())
        details = RecipeDetails{row.text(0), row.blob(1), row.text(2)};
    row.reset();
    return details;
}

std::optional<QByteArray> readPhoto(Connection& connection, const QUuid& id)
{
    Statement& row = connection.kept("SELECT imageData FROM Photo WHERE id = ?").bind(0, uuidText(id));
    std::optional<QByteArray> jpeg;
    if (row.step())
        jpeg = row.blob(0);
    row.reset();
    return jpeg;
}

qint64 insertRecipe(Connection& connection, const RecipeRecord& record)
{
    Statement& insert = connection.kept(insertSql());
    int parameter = 0;
    for (const auto& [name, attribute] : columns(allRecipeAttributes))
        bindAttribute(insert, parameter++, record, attribute);
    insert.run();
    const qint64 row = connection.lastInsertedRow();
    if (record.imageData)
        writePhoto(connection, record.id, record.imageData);
    return row;
}

bool updateRecipe(Connection& connection, const RecipeRecord& record, RecipeAttributes attributes)
{
    const auto written = columns(attributes);
    std::string assignments;
    for (const auto& [name, attribute] : written)
        assignments += (assignments.empty() ? "" : ", ") + std::string(name) + " = ?";
    // With the photo alone there is still a question to answer: is the recipe there?
    Statement& update =
        connection.kept("UPDATE Recipe SET " + (written.empty() ? "id = id" : assignments) + " WHERE id = ?");
    int parameter = 0;
    for (const auto& [name, attribute] : written)
        bindAttribute(update, parameter++, record, attribute);
    update.bind(parameter, uuidText(record.id)).run();
    if (connection.changes() == 0)
        return false;
    if (attributes.testFlag(RecipeAttribute::ImageData))
        writePhoto(connection, record.id, record.imageData);
    return true;
}

bool removeRecipe(Connection& connection, const QUuid& id)
{
    connection.kept("DELETE FROM Recipe WHERE id = ?").bind(0, uuidText(id)).run();
    return connection.changes() > 0;
}

} // namespace ovrin
