#include "support/dbus/NotificationService.h"

#include <QtCore/QUuid>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

const QString interface = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

} // namespace

NotificationService::NotificationService(const QString& address, const QStringList& capabilities)
    : m_name(QUuid::createUuid().toString())
    , m_connection(QDBusConnection::connectToBus(address, m_name))
    , m_capabilities(capabilities)
{
    EXPECT_TRUE(m_connection.registerVirtualObject(path, this));
    EXPECT_TRUE(m_connection.registerService(interface));
}

NotificationService::~NotificationService()
{
    m_connection.unregisterObject(path);
    QDBusConnection::disconnectFromBus(m_name);
}

bool NotificationService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QVariantList arguments = message.arguments();
    if (message.member() == QStringLiteral("GetCapabilities")) {
        connection.send(message.createReply(m_capabilities));
    } else if (message.member() == QStringLiteral("Notify") && arguments.size() == 8) {
        const uint number = uint(notes.size()) + 1;
        notes.append({number, arguments.at(3).toString(), arguments.at(4).toString(),
                      arguments.at(5).toStringList(), qdbus_cast<QVariantMap>(arguments.at(6)),
                      arguments.at(7).toInt()});
        if (!isSilent)
            connection.send(message.createReply(number));
        Q_EMIT changed();
    } else if (message.member() == QStringLiteral("CloseNotification")) {
        closed.append(arguments.value(0).toUInt());
        Q_EMIT changed();
    } else {
        return false;
    }
    return true;
}

void NotificationService::choose(uint note, const QString& action)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, QStringLiteral("ActionInvoked"));
    signal.setArguments({note, action});
    m_connection.send(signal);
}

QStringList NotificationService::bodies() const
{
    QStringList result;
    for (const Note& note : notes)
        result.append(note.body);
    result.sort();
    return result;
}

} // namespace ovrin::testing
