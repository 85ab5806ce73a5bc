#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace ovrin::test {

/// Marks whatever is started from here on: temporary files go to a folder that only these processes know of.
class RenderFamily
{
public:
    RenderFamily() { qputenv("TMPDIR", QFile::encodeName(m_folder.path())); }

    /// Command names of the marked processes that live, however they were started and by whom.
    QStringList living() const
    {
        QStringList names;
        const QStringList processes =
            QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
        for (const QString& process : processes) {
            const QString folder = QStringLiteral("/proc/%1/").arg(process);
            if (read(folder + QStringLiteral("environ")).contains(QFile::encodeName(m_folder.path())))
                names += QString::fromUtf8(read(folder + QStringLiteral("comm"))).trimmed();
        }
        return names;
    }
    /// Files and folders that they left.
    QStringList leftovers() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
};

} // namespace ovrin::test
