#include "platform/reminders/DesktopReminderStore.h"
#include "platform/reminders/FaultyTaskService.h"
#include "reminders/GroceryList.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

using namespace ovrin;
using namespace std::chrono_literals;
using ovrin::testing::FaultyTaskService;
using Fault = FaultyTaskService::Fault;

namespace {

/// A session bus of the test's own, on which the real task service is started with empty folders.
class TaskServiceTest : public ::testing::Test
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
        m_address = m_bus.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
    }

    /// A bus that can start of the real services only those named, with `policy` added to its rules.
    void startBusWith(const QStringList& services, const QByteArray& policy = {})
    {
        const QString folder = m_home.filePath(QStringLiteral("services"));
        QDir().mkpath(folder);
        for (const QString& service : services)
            ASSERT_TRUE(QFile::link(QStringLiteral(OVRIN_BUS_SERVICES "/%1.service").arg(service),
                                    QStringLiteral("%1/%2.service").arg(folder, service)));
        QFile config(m_home.filePath(QStringLiteral("bus.conf")));
        ASSERT_TRUE(config.open(QIODevice::WriteOnly));
        config.write(
            "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
            "<servicedir>" +
            folder.toUtf8() +
            "</servicedir><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
            "<allow eavesdrop=\"true\"/><allow own=\"*\"/>" +
            policy + "</policy></busconfig>");
        config.close();
        startBus({QStringLiteral("--config-file=") + config.fileName()});
    }

    /// What is said of adding so many items.
    static std::string added(ReminderStore& store, int count = 1)
    {
        QStringList items;
        for (int i = 0; i < count; ++i)
            items.append(QStringLiteral("item %1").arg(i));
        return GroceryList::addAndTell(store, items, QStringLiteral("Soup")).toStdString();
    }

    void TearDown() override
    {
        if (m_bus.state() == QProcess::NotRunning)
            return;
        m_bus.terminate();
        m_bus.waitForFinished();
    }

    static inline const QString accountService = QStringLiteral("org.gnome.evolution.dataserver.Sources5");
    static inline const QString listService = QStringLiteral("org.gnome.evolution.dataserver.Calendar8");

    QTemporaryDir m_home;
    QProcess m_bus;
    QByteArray m_address;
};

/// What the service stored, as it lies in its own file. It writes when it is idle, which may be after its
/// answer: it is asked for its lists until the file holds as many tasks as are awaited.
QByteArray storedTasks(const QString& home, const QString& list, ReminderStore& store, qsizetype awaited)
{
    const QString path =
        home + QStringLiteral("/XDG_DATA_HOME/evolution/tasks/") + list + QStringLiteral("/tasks.ics");
    const QDeadlineTimer patience(20'000);
    for (;;) {
        QFile file(path);
        const QByteArray tasks = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (tasks.count("BEGIN:VTODO") >= awaited || patience.hasExpired()) {
            return tasks;
        }
        store.requestAccess();
    }
}

TEST_F(TaskServiceTest, AddsFortyLinesToAListItMakesAndFindsAgain)
{
    startBus({QStringLiteral("--session")});
    QStringList items;
    for (int i = 0; i < 40; ++i)
        items << QStringLiteral("%1 cups of “crème”, <b>bold</b>; line").arg(i);
    DesktopReminderStore store;
    GroceryList::add(store, items, QStringLiteral("Crêpes, filled"));
    GroceryList::add(store, {QStringLiteral("salt")}, {});
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

    const QByteArray tasks = storedTasks(m_home.path(), id, store, 41);
    EXPECT_EQ(tasks.count("BEGIN:VTODO"), 41) << tasks.left(2000).constData();
    EXPECT_EQ(QByteArray(tasks).replace("\r\n ", "").count("DESCRIPTION:Crêpes\\, filled"), 40);
    EXPECT_TRUE(
        QByteArray(tasks).replace("\r\n ", "").contains("SUMMARY:39 cups of “crème”\\, <b>bold</b>\\; line"));
}

TEST_F(TaskServiceTest, UsesTheListThatAnotherProgramMadeMeanwhile)
{
    startBus({QStringLiteral("--session")});
    DesktopReminderStore store;
    ASSERT_TRUE(store.requestAccess());
    ASSERT_TRUE(store.defaultSource());
    auto call = QDBusMessage::createMethodCall(
        accountService, QStringLiteral("/org/gnome/evolution/dataserver/SourceManager"),
        QStringLiteral("org.gnome.evolution.dataserver.SourceManager"), QStringLiteral("CreateSources"));
    const QMap<QString, QString> list{
        {QStringLiteral("made-elsewhere"),
         QStringLiteral("[Data Source]\nDisplayName=groceries\nEnabled=true\n"
                        "Parent=local-stub\n[Task List]\nBackendName=local\n")}};
    call.setArguments({QVariant::fromValue(list)});
    qDBusRegisterMetaType<QMap<QString, QString>>();
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call);
    ASSERT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    const auto isKnown = [&] {
        store.requestAccess();
        const auto lists = store.lists();
        return std::any_of(lists.begin(), lists.end(),
                           [](const auto& each) { return each.id == QStringLiteral("made-elsewhere"); });
    };
    // The service tells of it; asking is a turn on the bus, in which that arrives.
    const QDeadlineTimer patience(20'000);
    while (!isKnown() && !patience.hasExpired()) {
    }
    EXPECT_EQ(added(store), "Added 1 items to your Groceries list.");
    EXPECT_EQ(storedTasks(m_home.path(), QStringLiteral("made-elsewhere"), store, 1).count("BEGIN:VTODO"), 1);
}

TEST_F(TaskServiceTest, SaysThatThereAreNoTaskListsAtOnce)
{
    startBusWith({});
    DesktopReminderStore store(2s);
    EXPECT_EQ(added(store), "This desktop has no task lists. You can save the list as a file instead.");
    // And none of the operations believes that it has one.
    EXPECT_THROW(store.lists(), ReminderStoreError);
}

TEST_F(TaskServiceTest, SaysThatThereIsNoSessionBus)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    DesktopReminderStore store(2s);
    EXPECT_EQ(added(store), "This desktop has no task lists. You can save the list as a file instead.");
}

const char* const refused =
    "Ovrin doesn't have access to Reminders. You can allow it in Settings › Privacy & "
    "Security › Reminders.";

TEST_F(TaskServiceTest, IsRefusedInASandbox)
{
    startBusWith({});
    QFile mark(m_home.filePath(QStringLiteral("mark")));
    ASSERT_TRUE(mark.open(QIODevice::WriteOnly));
    DesktopReminderStore store(2s, mark.fileName());
    EXPECT_EQ(added(store), refused);
}

TEST_F(TaskServiceTest, IsRefusedTheAccountsByTheBus)
{
    startBusWith({accountService, listService},
                 R"(<deny send_destination="org.gnome.evolution.dataserver.Sources5"/>)");
    DesktopReminderStore store(5s);
    EXPECT_EQ(added(store), refused);
}

TEST_F(TaskServiceTest, IsRefusedTheListsByTheBus)
{
    startBusWith({accountService, listService},
                 R"(<deny send_destination="org.gnome.evolution.dataserver.Calendar8"/>)");
    DesktopReminderStore store(5s);
    EXPECT_EQ(added(store), refused);
}

TEST_F(TaskServiceTest, LeavesAReadOnlyListAlone)
{
    startBus({QStringLiteral("--session")});
    // A subscribed list, whose server is not even there.
    const QString sources = m_home.filePath(QStringLiteral("XDG_CONFIG_HOME/evolution/sources"));
    QDir().mkpath(sources);
    QFile source(sources + QStringLiteral("/subscribed.source"));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("[Data Source]\nDisplayName=Groceries\nEnabled=true\nParent=webcal-stub\n"
                 "[Authentication]\nHost=127.0.0.1\nPort=9\nMethod=none\n"
                 "[WebDAV Backend]\nResourcePath=/tasks.ics\n[Security]\nMethod=none\n"
                 "[Task List]\nBackendName=webcal\nSelected=true\n");
    source.close();
    DesktopReminderStore store(10s);
    EXPECT_EQ(added(store), "The list cannot be changed: it is read-only.");
}

TEST_F(TaskServiceTest, TellsWhatBecameOfTheItemsWhenTheServiceFails)
{
    startBusWith({accountService});
    FaultyTaskService service(QString::fromUtf8(m_address));
    DesktopReminderStore store(10s);
    struct Row
    {
        FaultyTaskService::Behaviour behaviour;
        const char* said;
        int added;
    };
    for (const Row& row :
         {Row{{}, "Added 5 items to your Groceries list.", 5},
          Row{{Fault::Offline}, "The list is offline. Try again when its account is connected.", 0},
          Row{{Fault::Death, 0},
              "The task lists could not be reached. Try again, or save the list as a file.",
              0},
          Row{{Fault::Death, 2},
              "Only 2 of 5 items were added. Look at the list before you add them again.",
              2},
          Row{{Fault::Death, 5}, "Added 5 items to your Groceries list.", 5}}) {
        service.behave(row.behaviour);
        EXPECT_EQ(added(store, 5), row.said);
        EXPECT_EQ(service.added(), row.added) << row.said;
    }
}

TEST_F(TaskServiceTest, DoesNotWaitForASilentService)
{
    startBusWith({accountService});
    FaultyTaskService service(QString::fromUtf8(m_address));
    DesktopReminderStore patient(10s);
    ASSERT_EQ(added(patient), "Added 1 items to your Groceries list.") << "the list is there";
    // Asked again, the list has what was taken without an answer. What it does not have it may still get.
    for (const auto& [taken, said] :
         {std::pair(5, "Added 5 items to your Groceries list."),
          {2, "Only 2 of 5 items were added. Look at the list before you add them again."},
          {0,
           "The task lists stopped answering while items were being added. Look at the list before you add "
           "them again."}}) {
        service.behave({Fault::Silence, taken});
        DesktopReminderStore store(500ms);
        EXPECT_EQ(added(store, 5), said);
    }
}

} // namespace
