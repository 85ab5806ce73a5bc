#include "platform/instance/LibraryName.h"
#include "support/dbus/PrivateBus.h"

#include <QtCore/QDir>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnectionInterface>
#include <QtTest/QTest>

using namespace ovrin;
using ovrin::testing::PrivateBus;

namespace {

constexpr int patience = 30'000;

/// The real program without a screen, on a bus of the test's own.
class SecondStartTest : public ::testing::Test
{
protected:
    ~SecondStartTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("watcher")); }

    std::unique_ptr<QProcess> start(const QStringList& arguments)
    {
        auto process = std::make_unique<QProcess>();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.path());
        environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_home.path());
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(OVRIN_PROGRAM), arguments);
        return process;
    }

    bool owns(const QString& name)
    {
        return QTest::qWaitFor([&] { return m_watcher.interface()->isServiceRegistered(name); }, patience);
    }
    QString store(const QString& name) const { return m_home.filePath(name); }
    /// How many drafts wait for review in a library.
    qsizetype drafts(const QString& library) const
    {
        return QDir(library + QStringLiteral("/Review")).entryList({QStringLiteral("*.json")}).size();
    }

    PrivateBus m_bus;
    QTemporaryDir m_home;
    QDBusConnection m_watcher = QDBusConnection::connectToBus(m_bus.address(), QStringLiteral("watcher"));
};

/// Shows and ends: QProcess kills what still runs when it goes, with a warning.
class Running
{
public:
    explicit Running(std::unique_ptr<QProcess> process)
        : m_process(std::move(process))
    {
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running()
    {
        m_process->kill();
        m_process->waitForFinished();
    }
    bool isRunning() const { return m_process->state() == QProcess::Running; }

private:
    std::unique_ptr<QProcess> m_process;
};

TEST_F(SecondStartTest, GoesToTheWindowOfItsLibraryAlone)
{
    const Running first(start({QStringLiteral("--store"), store(QStringLiteral("a"))}));
    ASSERT_TRUE(owns(libraryName(store(QStringLiteral("a")))));
    EXPECT_FALSE(m_watcher.interface()->isServiceRegistered(applicationName)) << "not the usual library";

    const Running other(start({QStringLiteral("--store"), store(QStringLiteral("b"))}));
    ASSERT_TRUE(owns(libraryName(store(QStringLiteral("b")))));
    const Running usual(start({}));
    ASSERT_TRUE(owns(applicationName));
    EXPECT_TRUE(owns(libraryName(store(QStringLiteral("ovrin")))));

    const QByteArray draft =
        QByteArray(R"({"title":"Soup","author":"","publisher":"","summary":"","yield":"",)"
                   R"("ingredients":["salt"],"steps":[]})")
            .toBase64();
    const QString link = QStringLiteral("ovrin://draft?json=") + QString::fromLatin1(draft);
    const auto second = start({QStringLiteral("--store"), store(QStringLiteral("a")), link});
    ASSERT_TRUE(second->waitForFinished(patience));
    EXPECT_EQ(second->exitCode(), 0) << second->readAllStandardError().constData();
    EXPECT_TRUE(QTest::qWaitFor([&] { return drafts(store(QStringLiteral("a"))) == 1; }, patience));
    EXPECT_EQ(drafts(store(QStringLiteral("b"))) + drafts(store(QStringLiteral("ovrin"))), 0);
    EXPECT_TRUE(first.isRunning() && other.isRunning() && usual.isRunning());
}

TEST_F(SecondStartTest, StartedByTheBusWaitsToBeTold)
{
    const Running service(start({QStringLiteral("--dbus-service")}));
    ASSERT_TRUE(owns(applicationName));
    auto call = QDBusMessage::createMethodCall(applicationName, applicationPath,
                                               QStringLiteral("org.freedesktop.Application"),
                                               QStringLiteral("Activate"));
    call.setArguments({QVariantMap()});
    const QDBusMessage answer = m_watcher.call(call, QDBus::Block, patience);
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    const auto second = start({QStringLiteral("--new-recipe")});
    ASSERT_TRUE(second->waitForFinished(patience));
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_TRUE(service.isRunning());
}

TEST_F(SecondStartTest, RunsOnItsOwnWithoutABus)
{
    m_bus.stop();
    const auto process = start({});
    QByteArray log;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            log += process->readAllStandardError();
            return log.contains("No session bus") &&
                   QFile::exists(store(QStringLiteral("ovrin/Library.sqlite")));
        },
        patience))
        << log.constData();
    EXPECT_EQ(process->state(), QProcess::Running);
    process->kill();
    process->waitForFinished();
}

} // namespace
