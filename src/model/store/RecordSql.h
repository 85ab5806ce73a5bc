#pragma once

#include "model/RecipeRecord.h"
#include "model/store/Sqlite.h"

#include <vector>

namespace ovrin {

/// A recipe as the library lists it: everything but summary, steps, notes and photo, which stay empty.
struct ListedRecipe
{
    /// Without its ingredient lines: most lists are made without anyone reading them.
    RecipeRecord record;
    /// Those, for `ingredientsFrom`.
    QByteArray ingredients;
    bool hasImage = false;
    /// SQLite's row number: the order of insertion.
    qint64 row = 0;
};

/// The attributes that a listing leaves out but the details hold.
struct RecipeDetails
{
    QString summary;
    QByteArray stepsData;
    QString notes;
};

/// Selects whole rows for `readFull`, photos aside; the row number comes first.
extern const std::string_view fullSql;
std::optional<RecipeRecord> readFull(sqlite::Statement& row);

/// The lines that a column of ingredients holds.
QStringList ingredientsFrom(QByteArrayView json);

/// All recipes, in order of insertion.
std::vector<ListedRecipe> listRecipes(sqlite::Connection& connection);
std::optional<ListedRecipe> listRecipe(sqlite::Connection& connection, const QUuid& id);
std::optional<RecipeDetails> readDetails(sqlite::Connection& connection, const QUuid& id);
std::optional<QByteArray> readPhoto(sqlite::Connection& connection, const QUuid& id);

/// The row that the recipe was given.
qint64 insertRecipe(sqlite::Connection& connection, const RecipeRecord& record);
/// Writes the named attributes; false when there is no such recipe (any more).
bool updateRecipe(sqlite::Connection& connection, const RecipeRecord& record, RecipeAttributes attributes);
bool removeRecipe(sqlite::Connection& connection, const QUuid& id);

} // namespace ovrin
