#include "model/store/LibraryFile.h"

#include "model/store/Rescue.h"
#include "model/store/Schema.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <cerrno>
#include <fcntl.h>

namespace ovrin {

namespace {

using sqlite::Connection;

/// Met instead of a library that can be used.
struct Damage
{
};

QString databasePath(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("Library.sqlite"));
}

QString markPath(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("Library.damaged"));
}

/// Looks at the file before SQLite does, whose first step already counts on its being a database.
void refuseOtherFiles(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        if (errno == EACCES)
            throw LibraryError{QStringLiteral("You don’t have permission to read “%1”.").arg(path)};
        return;
    }
    QFile file;
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    if (!QFileInfo(path).isFile())
        throw LibraryError{QStringLiteral("“%1” is not a file.").arg(path)};
    if (file.size() == 0)
        return;
    static const QByteArray magic("SQLite format 3", 16);
    if (file.read(magic.size()) != magic)
        throw LibraryError{QStringLiteral("“%1” is not a recipe library.").arg(path)};
}

LibraryFile openDatabase(const QString& path, const QByteArray& vfs, bool lookAtAll)
{
    Connection writer(path, Connection::Mode::Create, vfs);
    if (writer.isReadOnly())
        throw LibraryError{QStringLiteral("You don’t have permission to change “%1”.").arg(path)};
    prepareSchema(writer);
    writer.execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL");
    if (lookAtAll && writer.text("PRAGMA integrity_check(1)") != QStringLiteral("ok"))
        throw Damage{};
    Connection reader(path, Connection::Mode::ReadOnly, vfs);
    const qint64 dataVersion = reader.number("PRAGMA data_version");
    const qint64 sequence = reader.number("SELECT ifnull(max(sequence), 0) FROM Change");
    std::vector<ListedRecipe> recipes = listRecipes(reader);
    return {std::move(reader), std::move(writer), std::move(recipes), dataVersion, sequence, {}};
}

/// Nothing when the file is damaged.
std::optional<LibraryFile> openUndamaged(const QString& folder, const QByteArray& vfs)
{
    const QString path = databasePath(folder);
    refuseOtherFiles(path);
    try {
        const bool isMarked = QFile::exists(markPath(folder));
        LibraryFile file = openDatabase(path, vfs, isMarked);
        if (isMarked)
            QFile::remove(markPath(folder));
        return file;
    } catch (const Damage&) {
        return std::nullopt;
    } catch (const sqlite::Error& error) {
        if (error.isDamage())
            return std::nullopt;
        throw LibraryError{error.description()};
    }
}

} // namespace

LibraryFile openLibrary(const QString& folder, const QByteArray& vfs, Instant now)
{
    if (!QDir().mkpath(folder))
        throw LibraryError{QStringLiteral("The folder “%1” can’t be made.").arg(folder)};
    finishRescue(folder, now);
    if (auto file = openUndamaged(folder, vfs))
        return std::move(*file);

    const Rescued rescued = rescueLibrary(folder, vfs, now);
    auto file = openUndamaged(folder, vfs);
    if (!file)
        throw LibraryError{QStringLiteral("The library’s file is damaged, and so is the disk it lies on.")};
    file->notice =
        QStringLiteral("The library’s file was damaged. What could be read was saved into a new one (%1 "
                       "recipes). The damaged file was kept as “%2”.")
            .arg(rescued.recipes)
            .arg(rescued.keptAs);
    return std::move(*file);
}

void markDamaged(const QString& folder)
{
    QFile mark(markPath(folder));
    mark.open(QIODevice::WriteOnly);
}

} // namespace ovrin
