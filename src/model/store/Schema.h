#pragma once

#include "model/store/Sqlite.h"

namespace ovrin {

/// The version of the tables that this program writes, kept in the database's `user_version`.
inline constexpr int schemaVersion = 1;
/// Marks a database as a recipe library ("OVRN"), kept in its `application_id`.
inline constexpr qint64 schemaApplicationId = 0x4f56524e;

/// Makes the tables in an empty database, or brings older ones forward, in one transaction. Throws
/// LibraryError for a newer library or someone else's database, having changed nothing.
void prepareSchema(sqlite::Connection& connection);

} // namespace ovrin
