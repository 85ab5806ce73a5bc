#include "helpers/notifier/TimerBook.h"
#include "helpers/notifier/Protocol.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace ovrin::notifier;

namespace {

class TimerBookTest : public testing::Test
{
protected:
    TimerBook book(const char* boot = "boot-1") const { return {path(), boot}; }
    std::string path() const { return folder.filePath(QStringLiteral("timers")).toStdString(); }
    QByteArray journal() const
    {
        QFile file(QString::fromStdString(path()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void setJournal(const QByteArray& bytes) const
    {
        QFile file(QString::fromStdString(path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
};

std::vector<std::string> idsOf(const std::vector<Timer>& timers)
{
    std::vector<std::string> ids;
    for (const Timer& timer : timers)
        ids.push_back(timer.id);
    return ids;
}

using Ids = std::vector<std::string>;

TEST_F(TimerBookTest, GivesEachTimerOnceFirstEndsFirst)
{
    TimerBook timers = book();
    EXPECT_TRUE(timers.add({"at", "late", "300", "us", "Timer done", "late — Stock"}));
    EXPECT_TRUE(timers.add({"at", "early", "100", "", "Timer done", "early — Stock"}));
    EXPECT_TRUE(timers.add({"at", "also early", "100", "u", "Timer done", "also"}));
    EXPECT_EQ(timers.nextEnd(), 100);
    EXPECT_TRUE(timers.takeDue(99).empty());
    EXPECT_EQ(idsOf(timers.takeDue(100)), (Ids{"early", "also early"}));
    EXPECT_EQ(timers.nextEnd(), 300);
    const auto due = timers.takeDue(1000);
    ASSERT_EQ(due.size(), 1);
    EXPECT_EQ(due[0].body, "late — Stock");
    EXPECT_TRUE(due[0].isUrgent && due[0].hasSound);
    EXPECT_FALSE(timers.isEmpty()) << "given out is not yet shown";
    for (const char* id : {"early", "also early", "late"})
        timers.finish(id);
    EXPECT_TRUE(timers.isEmpty());
}

TEST_F(TimerBookTest, WhatIsOverStaysOver)
{
    TimerBook timers = book();
    timers.add({"at", "a", "100", "", "t", "b"});
    timers.add({"at", "b", "100", "", "t", "b"});
    timers.finish("a");
    EXPECT_TRUE(timers.isOver("a"));
    EXPECT_TRUE(timers.add({"at", "a", "100", "", "t", "b"}))
        << "said again by an application that did not hear";
    EXPECT_EQ(idsOf(timers.takeDue(100)), Ids{"b"});
}

TEST_F(TimerBookTest, ASuccessorGoesOnWhereThisOneStopped)
{
    {
        TimerBook timers = book();
        timers.add({"at", "shown", "100", "us", "t", "b"});
        timers.add({"at", "given out, not shown", "100", "us", "t", "½ — Crème"});
        timers.add({"at", "cancelled", "200", "us", "t", "b"});
        timers.add({"at", "waiting", "200", "us", "t", "b"});
        timers.takeDue(150);
        timers.finish("shown");
        timers.finish("cancelled");
    }
    TimerBook timers = book();
    const auto late = timers.takeDue(150);
    EXPECT_EQ(idsOf(late), Ids{"given out, not shown"});
    EXPECT_EQ(late.at(0).body, "½ — Crème");
    EXPECT_EQ(idsOf(timers.takeDue(250)), Ids{"waiting"});
    EXPECT_TRUE(timers.isOver("cancelled"));
}

TEST_F(TimerBookTest, ACutOffLineIsNoTimerAndSpoilsNoOther)
{
    book().add({"at", "whole", "100", "us", "t", "b"});
    setJournal(journal() + "at\tcut\t100\tus\tt");
    book().add({"at", "next", "100", "us", "t", "b"});
    TimerBook timers = book();
    EXPECT_EQ(idsOf(timers.takeDue(100)), (Ids{"whole", "next"}));
}

TEST_F(TimerBookTest, AnotherBootsClockMeansNothing)
{
    book("boot-1").add({"at", "a", "100", "us", "t", "b"});
    EXPECT_TRUE(book("boot-2").isEmpty());
    EXPECT_TRUE(book("boot-1").isEmpty());
}

TEST_F(TimerBookTest, TakesNoNonsense)
{
    TimerBook timers = book();
    const std::string longId(65, 'x');
    EXPECT_FALSE(timers.add({"at"}));
    EXPECT_FALSE(timers.add({"at", "", "100", "", "t", "b"}));
    EXPECT_FALSE(timers.add({"at", longId, "100", "", "t", "b"}));
    EXPECT_FALSE(timers.add({"at", "a", "soon", "", "t", "b"}));
    EXPECT_FALSE(timers.add({"at", "a", "100x", "", "t", "b"}));
    EXPECT_FALSE(timers.add({"at", "a", "99999999999999999999", "", "t", "b"}));
    EXPECT_FALSE(timers.add({"at", "a", "100", "", "t"}));
    EXPECT_FALSE(timers.add({"at", "a", "100", "", "t", "b", "c"}));
    EXPECT_TRUE(timers.isEmpty());

    const char hostile[] = "boot\tboot-1\n\0\xff\n\tat\nover\nat\ta\t1\t\tt\tb\n";
    setJournal(QByteArray(hostile, sizeof(hostile) - 1));
    EXPECT_EQ(idsOf(book().takeDue(1)), Ids{"a"});
}

TEST_F(TimerBookTest, WithoutAFileItIsKeptInMemory)
{
    TimerBook timers(path() + "/no/such/folder", "boot-1");
    timers.add({"at", "a", "100", "", "t", "b"});
    EXPECT_EQ(idsOf(timers.takeDue(100)), Ids{"a"});
}

TEST(NotifierProtocol, ALineIsOneLineWhateverItsFields)
{
    const std::string written = line({"at", "a\tb\nc\r", ""});
    EXPECT_EQ(written, "at\ta b c \t\n");
    EXPECT_EQ(fields("at\ta b c \t"), (std::vector<std::string_view>{"at", "a b c ", ""}));
    EXPECT_EQ(fields(""), std::vector<std::string_view>{""});
}

} // namespace
