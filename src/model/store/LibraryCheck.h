#pragma once

#include "model/store/Sqlite.h"

#include <QtCore/QStringList>

#include <functional>

namespace ovrin {

/// Everything that is wrong in a library, a sentence each: its structure, every recipe's values, every photo.
/// Reads the whole file. `isDecodable` says whether bytes are a photo.
QStringList checkLibrary(sqlite::Connection& connection,
                         const std::function<bool(const QByteArray&)>& isDecodable);

} // namespace ovrin
