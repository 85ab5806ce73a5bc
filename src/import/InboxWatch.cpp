#include "import/InboxWatch.h"

#include <QtCore/QDir>

namespace ovrin {

InboxWatch::InboxWatch(QString folder, QObject* parent)
    : QObject(parent)
    , m_folder(std::move(folder))
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &InboxWatch::changed);
}

void InboxWatch::setActive(bool isActive)
{
    // In any case: a folder that was removed meanwhile is watched no longer, whatever the watcher says.
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePath(m_folder);
    if (isActive && QDir().mkpath(m_folder))
        m_watcher.addPath(m_folder);
}

} // namespace ovrin
