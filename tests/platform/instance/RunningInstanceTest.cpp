#include "platform/instance/RunningInstance.h"

#include "platform/instance/HandOver.h"
#include "platform/instance/LibraryName.h"
#include "support/dbus/PrivateBus.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtDBus/QDBusConnectionInterface>
#include <QtTest/QTest>

#include <future>

using namespace ovrin;
using namespace std::chrono_literals;
using ovrin::testing::PrivateBus;

namespace {

const QString folder = QStringLiteral("/library/of/one");

class RunningInstanceTest : public ::testing::Test
{
protected:
    ~RunningInstanceTest() override
    {
        for (const QString& name : std::as_const(m_names))
            QDBusConnection::disconnectFromBus(name);
    }

    QDBusConnection connect()
    {
        m_names.append(QStringLiteral("connection %1").arg(m_names.size()));
        return QDBusConnection::connectToBus(m_bus.address(), m_names.last());
    }

    /// As another process would, while this one answers.
    HandOver handOverWhileRunning(const StartRequest& request, const QString& name)
    {
        const QDBusConnection bus = connect();
        auto result = std::async(std::launch::async, [&] { return handOver(bus, name, request); });
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return result.wait_for(0s) == std::future_status::ready; }, 10'000));
        return result.get();
    }

    PrivateBus m_bus;

private:
    QStringList m_names;
};

TEST_F(RunningInstanceTest, GetsWhatALaterStartAskedFor)
{
    RunningInstance instance(connect());
    ASSERT_EQ(instance.claim(folder, true), RunningInstance::Claim::Taken);
    QList<StartRequest> requests;
    QObject::connect(&instance, &RunningInstance::requested,
                     [&](const StartRequest& request) { requests.append(request); });
    const StartRequest both{{QUrl::fromLocalFile(QStringLiteral("/tmp/Crêpes 100% #1.pdf")),
                             QUrl(QStringLiteral("ovrin://import?url=https%3A%2F%2Fa.example%2F%3Fb%26c"))},
                            QStringLiteral("new-recipe"),
                            {"token", "id_TIME7"}};
    EXPECT_EQ(handOverWhileRunning(both, libraryName(folder)), HandOver::Done);
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests.at(0).addresses, both.addresses);
    EXPECT_EQ(requests.at(0).token.activation, "token");
    EXPECT_EQ(requests.at(1).action, both.action);
    EXPECT_EQ(requests.at(1).token.startupId, "id_TIME7");
    // What the desktop itself asks for, by the name of the desktop entry.
    EXPECT_EQ(handOverWhileRunning({}, QStringLiteral("org.ovrin.Ovrin")), HandOver::Done);
    ASSERT_EQ(requests.size(), 3);
    EXPECT_TRUE(requests.at(2).addresses.isEmpty() && requests.at(2).action.isEmpty());
}

TEST_F(RunningInstanceTest, OneProcessALibrary)
{
    auto first = std::make_unique<RunningInstance>(connect());
    RunningInstance second(connect());
    RunningInstance elsewhere(connect());
    EXPECT_EQ(first->claim(folder, true), RunningInstance::Claim::Taken);
    EXPECT_EQ(elsewhere.claim(QStringLiteral("/another"), false), RunningInstance::Claim::Taken);
    EXPECT_EQ(second.claim(folder, true), RunningInstance::Claim::HeldByAnother);
    first.reset();
    EXPECT_EQ(handOver(connect(), libraryName(folder), {}), HandOver::NobodyThere);
    const QDBusConnection bus = connect();
    EXPECT_FALSE(bus.interface()->isServiceRegistered(applicationName));
    RunningInstance third(bus);
    EXPECT_EQ(third.claim(folder, true), RunningInstance::Claim::Taken);
    EXPECT_TRUE(bus.interface()->isServiceRegistered(applicationName));
}

TEST_F(RunningInstanceTest, TellsSilenceFromAbsence)
{
    RunningInstance busy(connect());
    ASSERT_EQ(busy.claim(folder, false), RunningInstance::Claim::Taken);
    // Nothing runs its event loop meanwhile.
    EXPECT_EQ(handOver(connect(), libraryName(folder), {}, 50ms), HandOver::NoAnswer);
    m_bus.stop();
    EXPECT_EQ(handOver(connect(), libraryName(folder), {}), HandOver::NobodyThere);
    RunningInstance alone(connect());
    EXPECT_EQ(alone.claim(folder, true), RunningInstance::Claim::Alone);
}

TEST(LibraryName, IsOneAFolderHoweverItsPathIsWritten)
{
    QTemporaryDir home;
    const QString library = home.filePath(QStringLiteral("library"));
    const QString link = home.filePath(QStringLiteral("link"));
    const QString missing = libraryName(library);
    ASSERT_TRUE(QDir().mkdir(library) && QFile::link(library, link));
    EXPECT_EQ(libraryName(library), missing) << "before and after the first start";
    EXPECT_EQ(libraryName(link), missing);
    EXPECT_EQ(libraryName(library + QStringLiteral("/")), missing);
    EXPECT_EQ(libraryName(library + QStringLiteral("/../library")), missing);
    EXPECT_EQ(libraryName(QDir::current().relativeFilePath(library)), missing);
    EXPECT_NE(libraryName(home.path()), missing);
    EXPECT_NE(libraryName(QStringLiteral("/")), libraryName(QStringLiteral("/nowhere")));
}

} // namespace
