#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QDir>
#include <QtCore/QFile>

namespace ovrin {

/// Feeds every file of that folder, named from the root of the sources, to a fuzz target's function; the
/// number of files.
inline int replay(const QString& folder, void (*target)(QByteArrayView))
{
    int count = 0;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        target(file.readAll());
        ++count;
    }
    return count;
}

} // namespace ovrin
