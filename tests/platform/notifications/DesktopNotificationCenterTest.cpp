#include "platform/notifications/DesktopNotificationCenter.h"
#include "cooking/NotificationPresenter.h"
#include "support/dbus/NotificationService.h"
#include "support/dbus/PrivateBus.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <csignal>

using namespace ovrin;
using ovrin::testing::NotificationService;
using ovrin::testing::PrivateBus;

namespace {

constexpr int patience = 20'000;

class DesktopNotificationCenterTest : public ::testing::Test
{
protected:
    ~DesktopNotificationCenterTest() override
    {
        if (const pid_t left = notifier(); left > 0)
            ::kill(left, SIGKILL);
    }

    /// An application's; several may live at a time.
    std::unique_ptr<DesktopNotificationCenter> application()
    {
        auto center = std::make_unique<DesktopNotificationCenter>(DesktopNotificationCenter::Surroundings{
            QStringLiteral(OVRIN_NOTIFIER), folder.path(), bus.address()});
        center->setDelegate(&presenter);
        return center;
    }

    static UserNotificationCenter::Request request(const QString& id, qint64 seconds,
                                                   const QString& body = {})
    {
        return {id, QStringLiteral("Timer done"), body.isEmpty() ? id : body, seconds};
    }

    /// Returns when all that was asked is written down.
    static bool settle(DesktopNotificationCenter& center)
    {
        bool isSettled = false;
        const QObject context;
        QObject::connect(&center, &DesktopNotificationCenter::settled, &context, [&] { isSettled = true; });
        return QTest::qWaitFor([&] { return isSettled; }, patience);
    }

    /// The process that waits; 0 when there is none.
    pid_t notifier() const
    {
        for (const QString& process : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")})) {
            QFile file(QStringLiteral("/proc/%1/cmdline").arg(process));
            if (file.open(QIODevice::ReadOnly) &&
                file.readAll().startsWith(OVRIN_NOTIFIER + QByteArray(1, '\0') + folder.path().toUtf8()))
                return process.toInt();
        }
        return 0;
    }

    bool isGone() const
    {
        return QTest::qWaitFor([&] { return notifier() == 0; }, patience);
    }

    static bool showsBodies(const NotificationService& service, const QStringList& bodies)
    {
        return QTest::qWaitFor([&] { return service.bodies() == bodies; }, patience);
    }

    /// What the notifier has written down as over.
    bool isWrittenOff(const QByteArray& id) const
    {
        return QTest::qWaitFor(
            [&] {
                QFile journal(folder.filePath(QStringLiteral("timers")));
                return journal.open(QIODevice::ReadOnly) && journal.readAll().contains("over\t" + id + '\n');
            },
            patience);
    }

    QStringList filesLeft() const
    {
        QStringList files =
            QDir(folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
        files.removeOne(QStringLiteral("notifier.lock"));
        return files;
    }

    PrivateBus bus;
    QTemporaryDir folder;
    NotificationPresenter presenter;
};

TEST_F(DesktopNotificationCenterTest, ShowsANoteAtItsEndUntilItIsSeen)
{
    NotificationService service(bus.address());
    auto center = application();
    EXPECT_TRUE(center->requestAuthorization());
    QElapsedTimer sinceStart;
    sinceStart.start();
    center->add(request(QStringLiteral("A"), 1, QStringLiteral("5 minutes — Banana Bread")));
    ASSERT_TRUE(showsBodies(service, {QStringLiteral("5 minutes — Banana Bread")}));
    EXPECT_GE(sinceStart.elapsed(), 1000);
    const auto& note = service.notes.at(0);
    EXPECT_EQ(note.title, QStringLiteral("Timer done"));
    EXPECT_EQ(note.hints.value(QStringLiteral("urgency")).toInt(), 2);
    EXPECT_EQ(note.hints.value(QStringLiteral("sound-name")).toString(),
              QStringLiteral("alarm-clock-elapsed"));
    EXPECT_EQ(note.timeout, 0);
    EXPECT_EQ(note.actions, (QStringList{QStringLiteral("stop"), QStringLiteral("Stop timer"),
                                         QStringLiteral("show"), QStringLiteral("Show recipe")}));
}

TEST_F(DesktopNotificationCenterTest, TextIsNeverMarkup)
{
    const QString hostile = QStringLiteral("<b>1 hour</b>\n&amp; \"2\"\t — <img src='x'/> Stock");
    {
        NotificationService plain(bus.address(), {});
        auto center = application();
        center->add(request(QStringLiteral("A"), 0, hostile));
        center->add(request(QStringLiteral("B"), 0, QString(100'000, u'x')));
        center->add(request(QStringLiteral("C"), 0, QString(150, u'x') + QStringLiteral("🍋").repeated(150)));
        ASSERT_TRUE(QTest::qWaitFor([&] { return plain.notes.size() == 3; }, patience));
        EXPECT_EQ(plain.notes.at(0).body,
                  QStringLiteral("<b>1 hour</b> &amp; \"2\"  — <img src='x'/> Stock"));
        EXPECT_EQ(plain.notes.at(0).actions, QStringList());
        EXPECT_EQ(plain.notes.at(1).body, QString(299, u'x') + u'…');
        EXPECT_TRUE(plain.notes.at(2).body.endsWith(QStringLiteral("🍋…")));
    }
    NotificationService marked(bus.address(), {QStringLiteral("body-markup")});
    auto center = application();
    center->add(request(QStringLiteral("D"), 0, hostile));
    EXPECT_TRUE(showsBodies(
        marked, {QStringLiteral("&lt;b&gt;1 hour&lt;/b&gt; &amp;amp; \"2\"  — &lt;img src='x'/&gt; Stock")}));
}

TEST_F(DesktopNotificationCenterTest, ACancelledTimerNeverNotifies)
{
    NotificationService service(bus.address());
    auto center = application();
    for (const QString& id : {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")})
        center->add(request(id, 1));
    // Before the notifier has heard of it, and after.
    center->remove(QStringLiteral("A"));
    ASSERT_TRUE(settle(*center));
    center->remove(QStringLiteral("B"));
    ASSERT_TRUE(showsBodies(service, {QStringLiteral("C")}));
    // On the screen: it goes.
    center->remove(QStringLiteral("C"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !service.closed.isEmpty(); }, patience));
    EXPECT_EQ(service.closed, QList<uint>{1});
    EXPECT_TRUE(isGone());
    EXPECT_EQ(service.bodies(), QStringList{QStringLiteral("C")});
    EXPECT_EQ(filesLeft(), QStringList());
}

TEST_F(DesktopNotificationCenterTest, ATimerThatIsStoppedAtOnceLeavesNothingBehind)
{
    // Stopped while its notifier starts, connects, writes it down, or has done so.
    for (const int delay : {0, 2, 4, 8, 16, 32, 64}) {
        auto center = application();
        const QString id = QString::number(delay);
        center->add(request(id, 600));
        QTest::qWait(delay);
        center->remove(id);
        EXPECT_TRUE(settle(*center)) << delay;
        EXPECT_TRUE(isGone()) << delay;
        EXPECT_EQ(filesLeft().size(), 0) << delay;
    }
}

TEST_F(DesktopNotificationCenterTest, WhatIsChosenReachesTheApplication)
{
    NotificationService service(bus.address());
    auto center = application();
    QStringList chosen;
    QObject::connect(center.get(), &UserNotificationCenter::actionChosen,
                     [&](const QString& id, UserNotificationCenter::Action action) {
                         chosen.append(id +
                                       (action == UserNotificationCenter::Action::StopTimer ? u'-' : u'+'));
                     });
    center->add(request(QStringLiteral("A"), 0));
    ASSERT_TRUE(showsBodies(service, {QStringLiteral("A")}));
    service.choose(17, QStringLiteral("stop"));
    service.choose(1, QStringLiteral("dance"));
    service.choose(1, QStringLiteral("show"));
    service.choose(1, QStringLiteral("stop"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return chosen.size() == 2; }, patience));
    EXPECT_EQ(chosen, (QStringList{QStringLiteral("A+"), QStringLiteral("A-")}));
    // With the application gone nobody waits for a choice.
    center.reset();
    EXPECT_TRUE(isGone());
}

TEST_F(DesktopNotificationCenterTest, NotifiesOnceAfterTheApplicationHasQuitOrWasKilled)
{
    NotificationService service(bus.address());
    QProcess quitting;
    QProcess killed;
    for (const auto& [process, end] :
         {std::pair(&quitting, QStringLiteral("quit")), std::pair(&killed, QStringLiteral("stay"))}) {
        process->start(
            QStringLiteral(OVRIN_NOTIFYING_APPLICATION),
            {QStringLiteral(OVRIN_NOTIFIER), folder.path(), bus.address(), end, QStringLiteral("1"), end});
    }
    ASSERT_TRUE(quitting.waitForFinished(patience));
    EXPECT_EQ(quitting.exitCode(), 0);
    ASSERT_TRUE(killed.waitForReadyRead(patience));
    killed.kill();
    ASSERT_TRUE(killed.waitForFinished(patience));
    EXPECT_TRUE(showsBodies(service, {QStringLiteral("quit"), QStringLiteral("stay")}));
    EXPECT_TRUE(isGone());
    EXPECT_EQ(service.notes.size(), 2);
    EXPECT_EQ(service.notes.at(1).actions, QStringList());
    EXPECT_EQ(filesLeft(), QStringList());
}

TEST_F(DesktopNotificationCenterTest, AKilledNotifierIsReplacedWhileTheApplicationRuns)
{
    NotificationService service(bus.address());
    auto center = application();
    center->add(request(QStringLiteral("now"), 0));
    center->add(request(QStringLiteral("soon"), 1));
    center->add(request(QStringLiteral("cancelled"), 1));
    ASSERT_TRUE(showsBodies(service, {QStringLiteral("now")}));
    ASSERT_TRUE(isWrittenOff("now"));
    const pid_t first = notifier();
    ASSERT_GT(first, 0);
    ::kill(first, SIGKILL);
    center->remove(QStringLiteral("cancelled"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return notifier() != first && notifier() != 0; }, patience));
    EXPECT_TRUE(showsBodies(service, {QStringLiteral("now"), QStringLiteral("soon")}));
    center.reset();
    EXPECT_TRUE(isGone());
    EXPECT_EQ(service.notes.size(), 2);
}

TEST_F(DesktopNotificationCenterTest, TheNextStartGoesOnWhenBothWereKilled)
{
    NotificationService service(bus.address());
    QProcess killed;
    killed.start(QStringLiteral(OVRIN_NOTIFYING_APPLICATION),
                 {QStringLiteral(OVRIN_NOTIFIER), folder.path(), bus.address(), QStringLiteral("left"),
                  QStringLiteral("1"), QStringLiteral("stay")});
    ASSERT_TRUE(killed.waitForReadyRead(patience));
    killed.kill();
    ASSERT_TRUE(killed.waitForFinished(patience));
    ::kill(notifier(), SIGKILL);
    ASSERT_TRUE(isGone());

    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    auto center = application();
    EXPECT_TRUE(showsBodies(service, {QStringLiteral("left")}));
    EXPECT_TRUE(isGone());
    EXPECT_EQ(service.notes.size(), 1);
}

TEST_F(DesktopNotificationCenterTest, WaitsForAServiceThatComesLater)
{
    auto center = application();
    center->add(request(QStringLiteral("A"), 0));
    ASSERT_TRUE(settle(*center));
    NotificationService service(bus.address());
    EXPECT_TRUE(showsBodies(service, {QStringLiteral("A")}));
}

TEST_F(DesktopNotificationCenterTest, OutlivesTheBus)
{
    auto service = std::make_unique<NotificationService>(bus.address());
    auto center = application();
    center->add(request(QStringLiteral("before"), 0));
    center->add(request(QStringLiteral("after"), 1));
    ASSERT_TRUE(showsBodies(*service, {QStringLiteral("before")}));
    ASSERT_TRUE(isWrittenOff("before"));
    bus.stop();
    service.reset();
    bus.start();
    service = std::make_unique<NotificationService>(bus.address());
    EXPECT_TRUE(showsBodies(*service, {QStringLiteral("after")}));
    center.reset();
    EXPECT_TRUE(isGone());
}

TEST_F(DesktopNotificationCenterTest, SaysAgainWhatTheBusTookAlong)
{
    auto service = std::make_unique<NotificationService>(bus.address());
    service->isSilent = true;
    auto center = application();
    center->add(request(QStringLiteral("A"), 0));
    center->add(request(QStringLiteral("B"), 0));
    ASSERT_TRUE(showsBodies(*service, {QStringLiteral("A"), QStringLiteral("B")}));
    center->remove(QStringLiteral("B"));
    ASSERT_TRUE(isWrittenOff("B"));
    bus.stop();
    service.reset();
    bus.start();
    service = std::make_unique<NotificationService>(bus.address());
    EXPECT_TRUE(showsBodies(*service, {QStringLiteral("A")}));
    center.reset();
    EXPECT_TRUE(isGone());
    EXPECT_EQ(service->notes.size(), 1);
}

TEST_F(DesktopNotificationCenterTest, AThousandEndAtOnce)
{
    NotificationService service(bus.address());
    auto center = application();
    QStringList bodies;
    for (int i = 0; i < 1000; ++i) {
        bodies.append(QStringLiteral("timer %1").arg(i, 4, 10, QLatin1Char('0')));
        center->add(request(bodies.last(), 1));
    }
    ASSERT_TRUE(settle(*center));
    EXPECT_TRUE(showsBodies(service, bodies));
    center.reset();
    EXPECT_TRUE(isGone());
    EXPECT_EQ(service.notes.size(), 1000);
}

TEST_F(DesktopNotificationCenterTest, OneNotifierServesAll)
{
    NotificationService service(bus.address());
    auto one = application();
    auto other = application();
    one->add(request(QStringLiteral("A"), 1));
    other->add(request(QStringLiteral("B"), 1));
    ASSERT_TRUE(showsBodies(service, {QStringLiteral("A"), QStringLiteral("B")}));
}

TEST_F(DesktopNotificationCenterTest, WithoutABusNothingIsStarted)
{
    DesktopNotificationCenter center({QStringLiteral(OVRIN_NOTIFIER), folder.path(), QString()});
    EXPECT_FALSE(center.requestAuthorization());
    EXPECT_EQ(filesLeft(), QStringList());
}

TEST_F(DesktopNotificationCenterTest, AMissingNotifierHoldsNothingUp)
{
    QElapsedTimer duration;
    duration.start();
    {
        DesktopNotificationCenter center({QStringLiteral("/no/such/program"), folder.path(), bus.address()});
        center.add(request(QStringLiteral("A"), 1));
    }
    EXPECT_LT(duration.elapsed(), 5000);
}

} // namespace
