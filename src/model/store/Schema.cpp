#include "model/store/Schema.h"

#include "model/RecipeRecord.h"
#include "model/store/LibraryFile.h"

#include <array>
#include <string>

namespace ovrin {

namespace {

constexpr const char* tables = R"(
CREATE TABLE Recipe (
    id TEXT NOT NULL PRIMARY KEY,
    title TEXT NOT NULL DEFAULT '',
    author TEXT NOT NULL DEFAULT '',
    publisher TEXT NOT NULL DEFAULT '',
    summary TEXT NOT NULL DEFAULT '',
    sourceURL TEXT,
    tintHex TEXT,
    yield TEXT NOT NULL DEFAULT '',
    prepMinutes INTEGER,
    cookMinutes INTEGER,
    totalMinutes INTEGER,
    ingredients TEXT NOT NULL DEFAULT '[]',
    stepsData BLOB NOT NULL DEFAULT x'',
    notes TEXT NOT NULL DEFAULT '',
    isSaved INTEGER NOT NULL DEFAULT 0,
    scale REAL NOT NULL DEFAULT 1,
    createdAt INTEGER NOT NULL,
    lastCookedAt INTEGER,
    timesCooked INTEGER NOT NULL DEFAULT 0
) STRICT;

-- imageData lies apart, so that listing the recipes reads no photo.
CREATE TABLE Photo (
    id TEXT NOT NULL PRIMARY KEY,
    imageData BLOB NOT NULL
) STRICT;

-- The last changes, whoever made them: what other processes look at to keep up.
CREATE TABLE Change (
    sequence INTEGER PRIMARY KEY,
    recipe TEXT NOT NULL,
    attributes INTEGER NOT NULL
) STRICT;
CREATE TRIGGER ChangePruned AFTER INSERT ON Change BEGIN
    DELETE FROM Change WHERE sequence <= NEW.sequence - 1000;
END;
)";

constexpr auto allAttributes = "1048575";

std::string logged(const std::string& trigger, const std::string& row, const std::string& attributes,
                   const std::string& more = {})
{
    return "CREATE TRIGGER " + trigger + " BEGIN INSERT INTO Change (recipe, attributes) VALUES (" + row +
           ".id, " + attributes + "); " + more + "END;\n";
}

/// Triggers that write Change. An update's names the attributes that it really changed, as RecipeAttribute
/// bits.
std::string changeTriggers()
{
    const auto imageBit = std::to_string(quint32(RecipeAttribute::ImageData));
    std::string changed = "0";
    for (std::size_t i = 0; i < recipeAttributeNames.size(); ++i) {
        const std::string name = recipeAttributeNames[i];
        if (name != "imageData")
            changed.append(" | ((OLD.")
                .append(name)
                .append(" IS NOT NEW.")
                .append(name)
                .append(") << ")
                .append(std::to_string(i))
                .append(")");
    }
    return logged("RecipeInserted AFTER INSERT ON Recipe", "NEW", allAttributes) +
           logged("RecipeUpdated AFTER UPDATE ON Recipe", "NEW", changed) +
           logged("RecipeDeleted AFTER DELETE ON Recipe", "OLD", allAttributes,
                  "DELETE FROM Photo WHERE id = OLD.id; ") +
           logged("PhotoInserted AFTER INSERT ON Photo", "NEW", imageBit) +
           logged("PhotoUpdated AFTER UPDATE ON Photo", "NEW", imageBit) +
           logged("PhotoDeleted AFTER DELETE ON Photo", "OLD", imageBit);
}

void createTables(sqlite::Connection& connection)
{
    connection.execute(tables);
    connection.execute(changeTriggers().c_str());
}

/// The n-th brings a library of version n forward to n + 1.
constexpr std::array migrations{&createTables};
static_assert(migrations.size() == schemaVersion);

/// The library's version, 0 for an empty database.
std::size_t versionOf(sqlite::Connection& connection)
{
    if (connection.number("SELECT count(*) FROM sqlite_schema") == 0)
        return 0;
    if (connection.number("PRAGMA application_id") != schemaApplicationId)
        throw LibraryError{QStringLiteral("The file is another program’s database, not a recipe library.")};
    const qint64 version = connection.number("PRAGMA user_version");
    if (version < 1 || version > schemaVersion)
        throw LibraryError{
            QStringLiteral("It was last used by a newer version of Ovrin. Update Ovrin to open it.")};
    return static_cast<std::size_t>(version);
}

} // namespace

void prepareSchema(sqlite::Connection& connection)
{
    if (versionOf(connection) == migrations.size())
        return;

    sqlite::Transaction transaction(connection);
    // Asked again: another process may have been quicker.
    for (std::size_t version = versionOf(connection); version < migrations.size(); ++version)
        migrations[version](connection);
    connection.execute(("PRAGMA application_id = " + std::to_string(schemaApplicationId)).c_str());
    connection.execute(("PRAGMA user_version = " + std::to_string(schemaVersion)).c_str());
    transaction.commit();
}

} // namespace ovrin
