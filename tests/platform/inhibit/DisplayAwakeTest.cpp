#include "platform/inhibit/DisplayAwake.h"
#include "support/dbus/PrivateBus.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVirtualObject>
#include <QtTest/QTest>

using namespace ovrin;
using ovrin::testing::PrivateBus;

namespace {

constexpr int patience = 10'000;

/// A desktop that can keep the display on, by one of the two interfaces.
class Desktop final : public QDBusVirtualObject
{
public:
    Desktop(const QString& address, const QString& service)
        : m_connection(QDBusConnection::connectToBus(address, service))
        , m_service(service)
    {
        EXPECT_TRUE(m_connection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath));
        EXPECT_TRUE(m_connection.registerService(service));
    }
    ~Desktop() override
    {
        m_connection.unregisterService(m_service);
        QDBusConnection::disconnectFromBus(m_service);
    }

    /// "Inhibit reason", "UnInhibit", "Close".
    QStringList calls;

private:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        const QVariantList arguments = message.arguments();
        if (message.member() != QStringLiteral("Inhibit")) {
            calls.append(message.member() + u' ' +
                         (arguments.isEmpty() ? message.path() : arguments.at(0).toString()));
        } else if (arguments.size() == 2) {
            calls.append(QStringLiteral("Inhibit ") + arguments.at(1).toString());
            connection.send(message.createReply(77U));
        } else {
            calls.append(QStringLiteral("Inhibit %1").arg(arguments.at(1).toUInt()));
            connection.send(
                message.createReply(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/request/1")))));
        }
        return true;
    }

    QDBusConnection m_connection;
    QString m_service;
};

class DisplayAwakeTest : public ::testing::Test
{
protected:
    ~DisplayAwakeTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("application")); }
    static bool heard(const Desktop& desktop, const QStringList& calls)
    {
        return QTest::qWaitFor([&] { return desktop.calls == calls; }, patience);
    }
    /// Once an answer has come back, so has everything sent before it.
    void settle()
    {
        connection.call(
            QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                           QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        QCoreApplication::processEvents();
    }

    PrivateBus bus;
    QDBusConnection connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("application"));
    const QString reason = QStringLiteral("Cooking");
    const QString inhibit = QStringLiteral("Inhibit Cooking");
};

TEST_F(DisplayAwakeTest, LetsGoWhenItGoes)
{
    Desktop desktop(bus.address(), QStringLiteral("org.freedesktop.ScreenSaver"));
    {
        const DisplayAwake awake(reason, connection);
        ASSERT_TRUE(heard(desktop, {inhibit}));
        settle();
    }
    EXPECT_TRUE(heard(desktop, {inhibit, QStringLiteral("UnInhibit 77")}));
}

TEST_F(DisplayAwakeTest, AsksARestartedDesktopAgain)
{
    auto desktop = std::make_unique<Desktop>(bus.address(), QStringLiteral("org.freedesktop.ScreenSaver"));
    const DisplayAwake awake(reason, connection);
    ASSERT_TRUE(heard(*desktop, {inhibit}));
    desktop.reset();
    desktop = std::make_unique<Desktop>(bus.address(), QStringLiteral("org.freedesktop.ScreenSaver"));
    EXPECT_TRUE(heard(*desktop, {inhibit}));
}

TEST_F(DisplayAwakeTest, TakesThePortalWhereThatIsAllThereIs)
{
    Desktop desktop(bus.address(), QStringLiteral("org.freedesktop.portal.Desktop"));
    {
        const DisplayAwake awake(reason, connection);
        ASSERT_TRUE(heard(desktop, {QStringLiteral("Inhibit 8")}));
        settle();
    }
    EXPECT_TRUE(heard(desktop, {QStringLiteral("Inhibit 8"), QStringLiteral("Close /request/1")}));
}

TEST_F(DisplayAwakeTest, WithoutADesktopNothingHappens)
{
    const DisplayAwake onBus(reason, connection);
    const DisplayAwake withoutBus(reason, QDBusConnection(QStringLiteral("no such connection")));
    settle();
}

} // namespace
