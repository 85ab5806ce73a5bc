#include "platform/reminders/DesktopReminderStore.h"
#include "reminders/GroceryList.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <chrono>

using namespace ovrin;
using namespace std::chrono_literals;

namespace {

/// A session bus of the test's own, on which the real task service is started with empty folders.
class TaskServiceTest : public testing::Test
{
protected:
    void startBus(const QStringList& arguments)
    {
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
            const QString folder = m_home.filePath(QString::fromLatin1(name));
            QDir().mkpath(folder);
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            qputenv(name, folder.toUtf8());
        }
        qputenv("GSETTINGS_BACKEND", "memory");
        m_bus.start(QStringLiteral("dbus-daemon"),
                    QStringList{QStringLiteral("--nofork"), QStringLiteral("--print-address=1")} + arguments);
        ASSERT_TRUE(m_bus.waitForStarted());
        while (!m_bus.canReadLine())
            ASSERT_TRUE(m_bus.waitForReadyRead(10'000));
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    }

    void TearDown() override
    {
        if (m_bus.state() == QProcess::NotRunning)
            return;
        m_bus.terminate();
        m_bus.waitForFinished();
    }

    QTemporaryDir m_home;
    QProcess m_bus;
};

/// What the service stored, as it lies in its own file.
QByteArray storedTasks(const QString& home, const QString& list)
{
    QFile file(home + QStringLiteral("/XDG_DATA_HOME/evolution/tasks/") + list +
               QStringLiteral("/tasks.ics"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(TaskServiceTest, AddsFortyLinesToAListItMakesAndFindsAgain)
{
    startBus({QStringLiteral("--session")});
    QStringList items;
    for (int i = 0; i < 40; ++i)
        items << QStringLiteral("%1 cups of “crème”, <b>bold</b>; line").arg(i);
    {
        DesktopReminderStore store;
        GroceryList::add(store, items, QStringLiteral("Crêpes, filled"));
        GroceryList::add(store, {QStringLiteral("salt")}, {});
    }
    DesktopReminderStore store;
    ASSERT_TRUE(store.requestAccess());
    QStringList lists;
    QString id;
    for (const auto& list : store.lists()) {
        lists << list.title;
        if (list.title == QLatin1String("Groceries"))
            id = list.id;
    }
    EXPECT_EQ(lists.count(QStringLiteral("Groceries")), 1);
    ASSERT_TRUE(store.defaultSource());
    EXPECT_EQ(store.defaultSource()->kind, ReminderStore::SourceKind::Local);

    const QByteArray tasks = storedTasks(m_home.path(), id);
    EXPECT_EQ(tasks.count("BEGIN:VTODO"), 41) << tasks.left(2000).constData();
    EXPECT_EQ(QByteArray(tasks).replace("\r\n ", "").count("DESCRIPTION:Crêpes\\, filled"), 40);
    EXPECT_TRUE(
        QByteArray(tasks).replace("\r\n ", "").contains("SUMMARY:39 cups of “crème”\\, <b>bold</b>\\; line"));
}

TEST_F(TaskServiceTest, SaysThatThereAreNoTaskListsAtOnce)
{
    // A bus that knows no services at all.
    QFile config(m_home.filePath(QStringLiteral("bus.conf")));
    ASSERT_TRUE(config.open(QIODevice::WriteOnly));
    config.write("<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
                 "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                 "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>");
    config.close();
    startBus({QStringLiteral("--config-file=") + config.fileName()});
    DesktopReminderStore store(2s);
    EXPECT_THROW(GroceryList::add(store, {QStringLiteral("salt")}, {}), ReminderStoreError);
    // And none of the operations believes that it has one.
    EXPECT_THROW(store.lists(), ReminderStoreError);
}

TEST_F(TaskServiceTest, SaysThatThereIsNoSessionBus)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    DesktopReminderStore store(2s);
    EXPECT_THROW(GroceryList::add(store, {QStringLiteral("salt")}, {}), ReminderStoreError);
}

} // namespace
