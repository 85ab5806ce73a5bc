#pragma once

#include "model/Instant.h"
#include "model/store/RecordSql.h"
#include "model/store/Sqlite.h"

#include <vector>

namespace ovrin {

/// Why a library cannot be opened, in a sentence for the user.
struct LibraryError
{
    QString description;
};

/// An open library: a connection to read and one to write, and what the list shows.
struct LibraryFile
{
    sqlite::Connection reader;
    sqlite::Connection writer;
    std::vector<ListedRecipe> recipes;
    /// Where the change log stood when the list was read.
    qint64 dataVersion = 0;
    qint64 sequence = 0;
    /// For the user: a damaged file was replaced by what could be read of it. Mostly empty.
    QString notice;
};

/// Opens `Library.sqlite` in `folder`, made when missing. A damaged one is rescued into a new file and kept
/// beside it under a dated name; any other trouble throws LibraryError, with nothing touched.
LibraryFile openLibrary(const QString& folder, const QByteArray& vfs, Instant now);

/// Remembers that damage was met, so that the next start looks at the whole file.
void markDamaged(const QString& folder);

} // namespace ovrin
