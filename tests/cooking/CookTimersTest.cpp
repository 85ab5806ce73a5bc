#include "cooking/CookTimers.h"
#include "cooking/NotificationPresenter.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>

using namespace ovrin;

namespace {

class FakeNotificationCenter final : public UserNotificationCenter
{
public:
    bool requestAuthorization() override { return isGranted; }
    void add(const Request& request) override { added.append(request); }
    void remove(const QString& id) override { removed.append(id); }

    bool isGranted = true;
    QList<Request> added;
    QStringList removed;
};

class CookTimersTest : public testing::Test
{
protected:
    QString timeLeft(int row) const { return timers.index(row).data(CookTimers::TimeLeftRole).toString(); }
    bool isDone(int row) const { return timers.index(row).data(CookTimers::DoneRole).toBool(); }
    void advance(qint64 milliseconds)
    {
        now = now.addMSecs(milliseconds);
        timers.refresh();
    }

    QDateTime now = QDateTime::fromMSecsSinceEpoch(1700000000250, Qt::UTC);
    FakeNotificationCenter center;
    CookTimers timers{[this] { return now; }, center};
    QAbstractItemModelTester tester{&timers, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(CookTimersTest, StartingAppendsAndAsksForTheNote)
{
    timers.start(300, QStringLiteral("5 minutes"), QStringLiteral("Banana Bread"));
    const auto second = timers.start(3600, QStringLiteral("1 hour"), QStringLiteral("Stock"));
    ASSERT_EQ(timers.timers().size(), 2);
    EXPECT_EQ(timers.timers().at(1), second);
    EXPECT_EQ(second.end, now.addSecs(3600));
    ASSERT_EQ(center.added.size(), 2);
    EXPECT_EQ(center.added.at(0).title, QStringLiteral("Timer done"));
    EXPECT_EQ(center.added.at(0).body, QStringLiteral("5 minutes — Banana Bread"));
    EXPECT_EQ(center.added.at(1).body, QStringLiteral("1 hour — Stock"));
    EXPECT_EQ(center.added.at(1).seconds, 3600);
    EXPECT_EQ(center.added.at(1).id, second.id.toString(QUuid::WithoutBraces).toUpper());
}

TEST_F(CookTimersTest, ALabelIsNeverTakenForAPlaceholder)
{
    timers.start(60, QStringLiteral("%2 %1"), QStringLiteral("%1"));
    EXPECT_EQ(center.added.at(0).body, QStringLiteral("%2 %1 — %1"));
}

TEST_F(CookTimersTest, EqualLabelsAreIndependent)
{
    const auto first = timers.start(60, QStringLiteral("1 minute"), QStringLiteral("Rice"));
    const auto second = timers.start(60, QStringLiteral("1 minute"), QStringLiteral("Rice"));
    const auto third = timers.start(60, QStringLiteral("1 minute"), QStringLiteral("Rice"));
    EXPECT_NE(first.id, second.id);
    timers.cancel(second);
    timers.cancel(second);
    EXPECT_EQ(timers.timers(), (QList<CookTimers::Running>{first, third}));
    EXPECT_EQ(center.removed, QStringList{second.id.toString(QUuid::WithoutBraces).toUpper()});
}

TEST_F(CookTimersTest, WithoutAuthorisationTheTrayAloneTells)
{
    center.isGranted = false;
    timers.start(1, QStringLiteral("1 second"), QStringLiteral("Egg"));
    EXPECT_TRUE(center.added.isEmpty());
    advance(1000);
    EXPECT_TRUE(isDone(0));
}

TEST_F(CookTimersTest, CountsDownToTheEndByTheWallClock)
{
    timers.start(2 * 3600, QStringLiteral("2 hours"), QStringLiteral("Stock"));
    timers.start(300, QStringLiteral("5 minutes"), QStringLiteral("Stock"));
    QSignalSpy ranOut(&timers, &CookTimers::ranOut);
    EXPECT_EQ(timeLeft(0), QStringLiteral("2:00:00"));
    EXPECT_EQ(timeLeft(1), QStringLiteral("5:00"));
    advance(1);
    EXPECT_EQ(timeLeft(1), QStringLiteral("5:00"));
    advance(999);
    EXPECT_EQ(timeLeft(0), QStringLiteral("1:59:59"));
    EXPECT_EQ(timeLeft(1), QStringLiteral("4:59"));
    advance(298'999);
    EXPECT_EQ(timeLeft(1), QStringLiteral("0:01"));
    EXPECT_FALSE(isDone(1));
    EXPECT_EQ(ranOut.count(), 0);
    advance(1);
    EXPECT_EQ(timeLeft(1), QString());
    EXPECT_TRUE(isDone(1));
    advance(60'000);
    EXPECT_EQ(ranOut.count(), 1);
    EXPECT_EQ(timers.count(), 2);
}

TEST_F(CookTimersTest, FollowsTheWallClockBothWays)
{
    timers.start(600, QStringLiteral("10 minutes"), QStringLiteral("Rice"));
    advance(-3'600'000);
    EXPECT_EQ(timeLeft(0), QStringLiteral("1:10:00"));
    advance(2 * 3'600'000);
    EXPECT_TRUE(isDone(0));
    advance(-3'600'000);
    EXPECT_EQ(timeLeft(0), QStringLiteral("10:00"));
    EXPECT_EQ(center.added.size(), 1);
}

TEST_F(CookTimersTest, ATimerStartedBetweenTwoRefreshesStartsWhole)
{
    now = now.addMSecs(700);
    timers.start(90, QStringLiteral("90 seconds"), QStringLiteral("Rice"));
    EXPECT_EQ(timeLeft(0), QStringLiteral("1:30"));
}

TEST_F(CookTimersTest, OpensTimerLinksAndNothingElse)
{
    EXPECT_TRUE(
        timers.openLink(QUrl(QStringLiteral("ovrin-timer://start?seconds=90")), QStringLiteral("Rice")));
    ASSERT_EQ(timers.count(), 1);
    EXPECT_EQ(timers.timers().at(0).label, QStringLiteral("Timer"));
    EXPECT_EQ(timers.timers().at(0).recipeTitle, QStringLiteral("Rice"));
    EXPECT_EQ(timers.timers().at(0).end, now.addSecs(90));
    EXPECT_FALSE(
        timers.openLink(QUrl(QStringLiteral("ovrin-timer://start?seconds=0")), QStringLiteral("Rice")));
    EXPECT_FALSE(timers.openLink(QUrl(QStringLiteral("file:///bin/sh")), QStringLiteral("Rice")));
    EXPECT_EQ(timers.count(), 1);
}

TEST_F(CookTimersTest, AHugeTimerStillHasAnEnd)
{
    timers.start(std::numeric_limits<qint64>::max(), QStringLiteral("long"), QStringLiteral("Cheese"));
    EXPECT_TRUE(timers.timers().at(0).end.isValid());
    EXPECT_FALSE(isDone(0));
    EXPECT_EQ(timeLeft(0), QStringLiteral("876000:00:00"));
    EXPECT_EQ(center.added.at(0).seconds, 876000LL * 3600);
}

TEST_F(CookTimersTest, ActionsOfANoteReachItsTimer)
{
    QSignalSpy wanted(&timers, &CookTimers::recipeWanted);
    timers.start(60, QStringLiteral("1 minute"), QStringLiteral("Rice"));
    const QUuid recipe = QUuid::createUuid();
    timers.start(60, QStringLiteral("1 minute"), QStringLiteral("Beans"), recipe);
    Q_EMIT center.actionChosen(center.added.at(1).id, UserNotificationCenter::Action::ShowRecipe);
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted.at(0).at(0).value<CookTimers::Running>().recipeId, recipe);
    Q_EMIT center.actionChosen(center.added.at(0).id, UserNotificationCenter::Action::StopTimer);
    Q_EMIT center.actionChosen(center.added.at(0).id, UserNotificationCenter::Action::StopTimer);
    Q_EMIT center.actionChosen(QStringLiteral("nonsense"), UserNotificationCenter::Action::StopTimer);
    ASSERT_EQ(timers.count(), 1);
    EXPECT_EQ(timers.timers().at(0).recipeTitle, QStringLiteral("Beans"));
}

TEST(NotificationPresenter, ShowsABannerWithSound)
{
    const auto presentation = NotificationPresenter().presentation({});
    EXPECT_TRUE(presentation.banner);
    EXPECT_TRUE(presentation.sound);
}

} // namespace
