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
        for (const QString& folder : folders())
            names += QString::fromUtf8(read(folder + QStringLiteral("comm"))).trimmed();
        return names;
    }
    /// Their memory together, what several share being divided among them (PSS).
    qint64 proportionalKilobytes() const
    {
        qint64 sum = 0;
        for (const QString& folder : folders()) {
            const QByteArray text = read(folder + QStringLiteral("smaps_rollup"));
            sum += text.mid(text.indexOf("\nPss:") + 5).trimmed().split(' ').first().toLongLong();
        }
        return sum;
    }
    /// Files and folders that they left.
    QStringList leftovers() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QStringList folders() const
    {
        QStringList found;
        const QStringList processes =
            QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
        for (const QString& process : processes) {
            const QString folder = QStringLiteral("/proc/%1/").arg(process);
            if (read(folder + QStringLiteral("environ")).contains(QFile::encodeName(m_folder.path())))
                found += folder;
        }
        return found;
    }
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
};

} // namespace ovrin::test
