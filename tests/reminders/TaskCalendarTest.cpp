#include "reminders/TaskCalendar.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

const QDateTime moment = QDateTime::fromMSecsSinceEpoch(1700000000000, Qt::UTC);

QList<QByteArray> unfolded(const QByteArray& file)
{
    return QByteArray(file).replace("\r\n ", "").split('\n');
}

TEST(TaskCalendar, WritesOneTaskALine)
{
    const QByteArray file = TaskCalendar::write({QStringLiteral("2 eggs"), QStringLiteral("½ cup milk")},
                                                QStringLiteral("Pancakes"), moment);
    EXPECT_EQ(file.count("BEGIN:VTODO\r\n"), 2);
    EXPECT_LT(file.indexOf("SUMMARY:2 eggs\r\n"), file.indexOf("SUMMARY:½ cup milk\r\n"));
    EXPECT_EQ(file.count("DESCRIPTION:Pancakes\r\n"), 2);
    EXPECT_EQ(file.count("DTSTAMP:20231114T221320Z\r\n"), 2);
    EXPECT_TRUE(file.startsWith("BEGIN:VCALENDAR\r\n") && file.endsWith("END:VCALENDAR\r\n"));
}

TEST(TaskCalendar, GivesEqualLinesTasksOfTheirOwn)
{
    const QByteArray file = TaskCalendar::write({QStringLiteral("salt"), QStringLiteral("salt")}, {}, moment);
    const qsizetype first = file.indexOf("UID:");
    const qsizetype second = file.indexOf("UID:", first + 1);
    EXPECT_NE(file.mid(first, 40), file.mid(second, 40));
}

TEST(TaskCalendar, KeepsForeignTextInsideItsValue)
{
    const QString hostile = QStringLiteral("salt, pepper; a\\b\r\nEND:VTODO\rBEGIN:VALARM\u0007");
    const QByteArray file = TaskCalendar::write({hostile}, hostile, moment);
    EXPECT_TRUE(unfolded(file).contains("SUMMARY:salt\\, pepper\\; a\\\\b\\nEND:VTODO\\nBEGIN:VALARM\r"));
    EXPECT_EQ(file.count("\r\nEND:VTODO"), 1);
    EXPECT_EQ(file.count("\r\nBEGIN:VALARM"), 0);
}

TEST(TaskCalendar, FoldsWithoutCuttingACharacter)
{
    for (int padding = 0; padding < 4; ++padding) {
        const QString item = QString(padding, u'x') + QStringLiteral("½🍋é").repeated(60);
        const QByteArray file = TaskCalendar::write({item}, {}, moment);
        for (const QByteArray& line : file.split('\n')) {
            EXPECT_LE(line.size(), 76); // 75 octets and the carriage return
            EXPECT_FALSE(QString::fromUtf8(line).contains(QChar::ReplacementCharacter));
        }
        EXPECT_TRUE(unfolded(file).contains("SUMMARY:" + item.toUtf8() + '\r'));
    }
}

TEST(TaskCalendar, IsSavedWholeOrNotAtAll)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(TaskCalendar::fileName(QStringLiteral("Crêpes")));
    ASSERT_TRUE(TaskCalendar::save(path, {QStringLiteral("salt")}, {}, moment));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), TaskCalendar::write({QStringLiteral("salt")}, {}, moment));
    EXPECT_FALSE(TaskCalendar::save(folder.filePath(QStringLiteral("no/where.ics")), {}, {}, moment));
}

TEST(TaskCalendar, ItsFileHasANameThatCanBeWritten)
{
    QTemporaryDir folder;
    for (const auto& [title, name] : {std::pair("Soup", "Soup – Groceries.ics"),
                                      {"", "Groceries.ics"},
                                      {"../..", "Groceries.ics"},
                                      {" .hidden", "hidden – Groceries.ics"},
                                      {"1/2 \"cup\": a\nb", "1 2 cup a b – Groceries.ics"}})
        EXPECT_EQ(TaskCalendar::fileName(QString::fromUtf8(title)).toStdString(), name);
    const QString longest = TaskCalendar::fileName(QStringLiteral("🍋").repeated(500));
    EXPECT_TRUE(TaskCalendar::save(folder.filePath(longest), {}, {}, moment)) << longest.size();
}

} // namespace
