#pragma once

#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QThread>
#include <QtDBus/QDBusVirtualObject>

#include <memory>

namespace ovrin::testing {

/// Stands where the task service's calendar factory stands on the bus, and fails as it is told to. It lives
/// in a thread of its own: whoever calls it waits.
class FaultyTaskService final : public QDBusVirtualObject
{
public:
    enum class Fault {
        None,
        Offline,
        /// Adds `added` items and never answers.
        Silence,
        /// Adds `added` items, then its process is gone and another one has taken its place.
        Death,
    };

    struct Behaviour
    {
        Fault fault = Fault::None;
        int added = 0;
    };

    explicit FaultyTaskService(const QString& address);
    ~FaultyTaskService() override;

    void behave(const Behaviour& behaviour);
    qsizetype added() const;

private:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QDBusMessage createObjects(const QDBusMessage& message);
    /// Takes a connection whose name is the next in line.
    void joinBus();
    void die();

    QString m_address;
    QStringList m_connections;
    QThread m_thread;
    mutable QMutex m_mutex;
    Behaviour m_behaviour;
    QSet<QString> m_uids;
};

} // namespace ovrin::testing
