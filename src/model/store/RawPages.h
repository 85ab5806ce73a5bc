#pragma once

#include "model/RecipeRecord.h"

#include <QtCore/QByteArray>

#include <functional>

namespace ovrin {

/// What a scan of single pages finds.
struct RawFinds
{
    std::function<void(qint64 row, const RecipeRecord& record)> recipe;
    std::function<void(const QUuid& id, const QByteArray& jpeg)> photo;
};

/// Reads a library's rows straight from its pages, for when the trees that lead to them are damaged.
/// `database` and `log` are the bytes of the file and of its write-ahead log (SQLite's file format,
/// sqlite.org/fileformat2.html, sections 1.5, 1.6, 2.1 and 4). Every bound is checked; rows that are not
/// whole are left out.
void scanPages(const QByteArray& database, const QByteArray& log, const RawFinds& finds);

} // namespace ovrin
