#include "import/DraftFolder.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QUuid>

#include <algorithm>

namespace ovrin {

namespace {

bool write(const QString& path, const QByteArray& bytes)
{
    // QSaveFile flushes and syncs before it renames: the file is never half there.
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

DraftFolder::DraftFolder(QString path)
    : m_path(std::move(path))
{
}

QStringList DraftFolder::files(Order order) const
{
    QFileInfoList entries = QDir(m_path).entryInfoList({QStringLiteral("*.json")}, QDir::Files);
    // The name filter ignores case, the inbox's rule does not.
    entries.removeIf([](const QFileInfo& entry) { return entry.suffix() != QLatin1String("json"); });
    std::stable_sort(entries.begin(), entries.end(), [order](const QFileInfo& a, const QFileInfo& b) {
        const QDateTime first = a.lastModified();
        const QDateTime second = b.lastModified();
        return order == Order::ByAge && first != second ? first < second : a.fileName() < b.fileName();
    });
    QStringList paths;
    for (const QFileInfo& entry : entries)
        paths << entry.absoluteFilePath();
    return paths;
}

std::optional<RecipeDraft> DraftFolder::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > maximumBytes)
        return std::nullopt;
    // Not as much as a draft may have: Qt makes room for all that is asked for.
    return RecipeDraft::fromJson(file.read(file.size()));
}

std::optional<QString> DraftFolder::add(const RecipeDraft& draft, Instant now) const
{
    if (!QDir().mkpath(m_path))
        return std::nullopt;
    const QString name = QStringLiteral("%1 %2.json")
                             .arg(now.time_since_epoch().count(), 20, 10, QLatin1Char('0'))
                             .arg(QUuid::createUuid().toString(QUuid::WithoutBraces));
    const QString path = QDir(m_path).filePath(name);
    return write(path, draft.toJson()) ? std::optional(path) : std::nullopt;
}

bool DraftFolder::replace(const QString& file, const RecipeDraft& draft)
{
    return write(file, draft.toJson());
}

bool DraftFolder::remove(const QString& file)
{
    return QFile::remove(file);
}

void DraftFolder::reject(const QString& file) const
{
    QDir rejected(QFileInfo(m_path).dir().filePath(QStringLiteral("Rejected")));
    if (!rejected.mkpath(QStringLiteral(".")))
        return;
    QString name = QFileInfo(file).fileName();
    if (rejected.exists(name))
        name.prepend(QUuid::createUuid().toString(QUuid::WithoutBraces) + u' ');
    QFile::rename(file, rejected.filePath(name));
}

} // namespace ovrin
