#include "model/store/Rescue.h"

#include "model/store/LibraryFile.h"
#include "model/store/RawPages.h"
#include "model/store/RecordSql.h"
#include "model/store/Schema.h"
#include "model/store/Sqlite.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QSet>

#include <fcntl.h>
#include <unistd.h>

namespace ovrin {

namespace {

using sqlite::Connection;
using sqlite::Statement;

struct Finds
{
    /// By row number, so that the order of insertion is kept.
    QMap<qint64, RecipeRecord> recipes;
    QHash<QUuid, QByteArray> photos;
    QSet<QUuid> ids;

    void add(qint64 row, const RecipeRecord& record)
    {
        if (ids.contains(record.id))
            return;
        ids.insert(record.id);
        while (recipes.contains(row))
            ++row;
        recipes.insert(row, record);
    }
};

/// Calls `take` with the rows that the table's tree still leads to: upwards until it breaks, then downwards.
/// `sql` ends in a column list and table; its first column is the row number.
template<typename Take>
void walkRows(Connection& damaged, const std::string& sql, Take take)
{
    for (const char* order : {" ORDER BY rowid", " ORDER BY rowid DESC"}) {
        try {
            Statement rows = damaged.prepare(sql + order);
            while (rows.step())
                take(rows);
            return;
        } catch (const sqlite::Error&) {
            continue;
        }
    }
}

void findBySql(Connection& damaged, Finds& finds)
{
    walkRows(damaged, std::string(fullSql), [&](Statement& row) {
        if (auto record = readFull(row))
            finds.add(row.integer(0), *record);
    });
    walkRows(damaged, "SELECT rowid, id, imageData FROM Photo",
             [&](Statement& row) { finds.photos.insert(QUuid::fromString(row.text(1)), row.blob(2)); });
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What no tree leads to any more. Such pages may be old ones: what SQL has found counts more.
void findInPages(const QString& path, Finds& finds)
{
    scanPages(contentOf(path), contentOf(path + QStringLiteral("-wal")),
              {[&](qint64 row, const RecipeRecord& record) { finds.add(row, record); },
               [&](const QUuid& id, const QByteArray& jpeg) {
                   if (!finds.photos.contains(id))
                       finds.photos.insert(id, jpeg);
               }});
}

qsizetype writeFinds(const Finds& finds, const QString& path, const QByteArray& vfs)
{
    Connection fresh(path, Connection::Mode::Create, vfs);
    prepareSchema(fresh);
    sqlite::Transaction transaction(fresh);
    for (RecipeRecord record : finds.recipes) {
        if (const auto photo = finds.photos.find(record.id); photo != finds.photos.end())
            record.imageData = *photo;
        insertRecipe(fresh, record);
    }
    transaction.commit();
    return finds.recipes.size();
}

void synchronizeFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

} // namespace

Rescued rescueLibrary(const QString& folder, const QByteArray& vfs, Instant now)
{
    const QDir dir(folder);
    const QString unfinished = dir.filePath(QStringLiteral("Library.rescuing.sqlite"));
    QFile::remove(unfinished);
    const QString database = dir.filePath(QStringLiteral("Library.sqlite"));
    Finds finds;
    try {
        Connection damaged(database, Connection::Mode::ReadOnly, vfs);
        findBySql(damaged, finds);
    } catch (const sqlite::Error&) {
        // Not even its schema can be read.
    }
    findInPages(database, finds);
    Rescued rescued;
    try {
        rescued.recipes = writeFinds(finds, unfinished, vfs);
    } catch (const sqlite::Error& error) {
        QFile::remove(unfinished);
        throw LibraryError{QStringLiteral("The library’s file is damaged, and a new one can’t be written. ") +
                           error.description()};
    }
    QFile::rename(unfinished, dir.filePath(QStringLiteral("Library.rescued.sqlite")));
    synchronizeFolder(folder);
    rescued.keptAs = finishRescue(folder, now);
    return rescued;
}

QString finishRescue(const QString& folder, Instant now)
{
    const QDir dir(folder);
    const QString rescued = dir.filePath(QStringLiteral("Library.rescued.sqlite"));
    if (!QFile::exists(rescued))
        return {};
    const QString database = dir.filePath(QStringLiteral("Library.sqlite"));
    QString keptAs = QStringLiteral("Library damaged %1.sqlite")
                         .arg(toDateTime(now).toString(QStringLiteral("yyyy-MM-dd HH.mm.ss")));
    const QString kept = dir.filePath(keptAs);
    // The log goes first: beside the new file it would be taken for that one's own.
    for (const auto& suffix : {QStringLiteral("-wal"), QString()})
        QFile::rename(database + suffix, kept + suffix);
    QFile::remove(database + QStringLiteral("-shm"));
    QFile::remove(dir.filePath(QStringLiteral("Library.damaged")));
    QFile::rename(rescued, database);
    synchronizeFolder(folder);
    return keptAs;
}

} // namespace ovrin
