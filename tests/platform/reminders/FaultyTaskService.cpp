#include "platform/reminders/FaultyTaskService.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUuid>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

const QString name = QStringLiteral("org.gnome.evolution.dataserver.Calendar8");
const QString factory = QStringLiteral("/org/gnome/evolution/dataserver/CalendarFactory");
const QString list = QStringLiteral("/org/gnome/evolution/dataserver/Subprocess/1/1");

// Errors as the service's library writes them on the bus: the error domain, and its code.
const QString offline =
    QStringLiteral("org.gtk.GDBus.UnmappedGError.Quark._e_2dclient_2derror_2dquark.Code6");
const QString notFound =
    QStringLiteral("org.gtk.GDBus.UnmappedGError.Quark._e_2dcal_2dclient_2derror_2dquark.Code1");

QString uidOf(const QString& task)
{
    static const QRegularExpression line(QStringLiteral("^UID:(.*?)\\r?$"),
                                         QRegularExpression::MultilineOption);
    return line.match(task).captured(1);
}

/// What an open list tells of itself.
QVariantMap properties()
{
    return {{QStringLiteral("Online"), true},
            {QStringLiteral("Writable"), true},
            {QStringLiteral("Revision"), QString()},
            {QStringLiteral("CacheDir"), QString()},
            {QStringLiteral("Capabilities"), QStringList{QStringLiteral("bulk-adds")}},
            {QStringLiteral("DefaultObject"), QString()},
            {QStringLiteral("CalEmailAddress"), QString()},
            {QStringLiteral("AlarmEmailAddress"), QString()}};
}

} // namespace

FaultyTaskService::FaultyTaskService(const QString& address)
    : m_address(address)
{
    moveToThread(&m_thread);
    m_thread.start();
    joinBus();
    joinBus();
}

FaultyTaskService::~FaultyTaskService()
{
    for (const QString& connection : std::as_const(m_connections))
        QDBusConnection::disconnectFromBus(connection);
    m_thread.quit();
    m_thread.wait();
}

void FaultyTaskService::joinBus()
{
    m_connections.append(QUuid::createUuid().toString());
    auto connection = QDBusConnection::connectToBus(m_address, m_connections.last());
    EXPECT_TRUE(connection.registerVirtualObject(factory, this));
    EXPECT_TRUE(connection.registerVirtualObject(list, this));
    EXPECT_TRUE(
        connection.interface()->registerService(name, QDBusConnectionInterface::QueueService).isValid());
}

void FaultyTaskService::die()
{
    joinBus();
    QDBusConnection::disconnectFromBus(m_connections.takeFirst());
}

void FaultyTaskService::behave(const Behaviour& behaviour)
{
    const QMutexLocker lock(&m_mutex);
    m_behaviour = behaviour;
    m_uids.clear();
}

qsizetype FaultyTaskService::added() const
{
    const QMutexLocker lock(&m_mutex);
    return m_uids.size();
}

QDBusMessage FaultyTaskService::createObjects(const QDBusMessage& message)
{
    const QStringList tasks = message.arguments().value(0).toStringList();
    QStringList uids;
    for (const QString& task : tasks) {
        if (m_behaviour.fault != Fault::None && m_uids.size() == m_behaviour.added)
            break;
        uids.append(uidOf(task));
        m_uids.insert(uids.last());
    }
    return message.createReply(uids);
}

bool FaultyTaskService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QMutexLocker lock(&m_mutex);
    const QString member = message.member();
    if (member == QStringLiteral("GetAll")) {
        const bool isFactory = message.path() == factory;
        connection.send(message.createReply(isFactory ? QVariantMap() : properties()));
    } else if (member == QStringLiteral("OpenTaskList")) {
        connection.send(message.createReply({list, name}));
    } else if (member == QStringLiteral("GetObject")) {
        const QString uid = message.arguments().value(0).toString();
        connection.send(
            m_uids.contains(uid)
                ? message.createReply(QStringLiteral("BEGIN:VTODO\r\nUID:%1\r\nEND:VTODO\r\n").arg(uid))
                : message.createErrorReply(notFound, QStringLiteral("Object not found")));
    } else if (member != QStringLiteral("CreateObjects")) {
        // "Open" answers with properties that the client reads by name elsewhere.
        connection.send(member == QStringLiteral("Open") ? message.createReply(QStringList())
                                                         : message.createReply());
    } else if (m_behaviour.fault == Fault::Offline) {
        connection.send(message.createErrorReply(offline, QStringLiteral("Repository offline")));
    } else {
        const QDBusMessage answer = createObjects(message);
        if (m_behaviour.fault == Fault::Death)
            die();
        else if (m_behaviour.fault != Fault::Silence)
            connection.send(answer);
    }
    return true;
}

} // namespace ovrin::testing
