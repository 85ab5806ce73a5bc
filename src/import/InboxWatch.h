#pragma once

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QObject>
#include <QtCore/QString>

namespace ovrin {

/// Tells when something has come into the inbox, while it is active. Nothing is polled.
class InboxWatch : public QObject
{
    Q_OBJECT

public:
    explicit InboxWatch(QString folder, QObject* parent = nullptr);

    /// Makes the folder when it is missing: one that is not there cannot be watched.
    void setActive(bool isActive);

Q_SIGNALS:
    void changed();

private:
    QString m_folder;
    QFileSystemWatcher m_watcher;
};

} // namespace ovrin
