#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <cerrno>

namespace ovrin {
namespace {

/// What the probe got for each of its attempts.
QMap<QString, int> outcomes(const QString& mode, const QString& folder)
{
    QProcess probe;
    probe.start(QStringLiteral(OVRIN_CAGE_PROBE), {mode, folder});
    EXPECT_TRUE(probe.waitForFinished());
    EXPECT_EQ(probe.exitStatus(), QProcess::NormalExit) << probe.readAllStandardError().toStdString();
    QMap<QString, int> outcomes;
    for (const auto& line :
         QString::fromUtf8(probe.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts)) {
        outcomes[line.section(u'=', 0, 0)] = line.section(u'=', 1).toInt();
    }
    return outcomes;
}

class Cage : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile secret(m_folder.filePath(QStringLiteral("secret")));
        ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
    }

    QTemporaryDir m_folder;
};

TEST_F(Cage, LeavesWhatDecodingNeedsAndNothingElse)
{
    const auto caged = outcomes(QStringLiteral("caged"), m_folder.path());
    if (caged.contains(QStringLiteral("lacks"))) {
        GTEST_SKIP() << "This system lacks a layer of the cage.";
    }
    struct Case
    {
        const char* attempt;
        int expected;
    };
    for (const auto& [attempt, expected] : {
             Case{"read a library", 0},
             Case{"start a thread", 0},
             Case{"take 100 MB", 0},
#ifndef OVRIN_SANITIZED
             Case{"take 8 GB", ENOMEM},
#endif
             Case{"read a file", EACCES},
             Case{"read the password file", EACCES},
             Case{"read its environment", EACCES},
             Case{"list a folder", EACCES},
             Case{"write a file", EPERM},
             Case{"create a file", EPERM},
             Case{"create a nameless file", EPERM},
             Case{"rename a file", EPERM},
             Case{"make a folder", EPERM},
             Case{"change a file's mode", EPERM},
             Case{"open an internet socket", EPERM},
             Case{"open a datagram socket", EPERM},
             Case{"open a local socket", EPERM},
             Case{"make a socket pair", EPERM},
             Case{"fork", EPERM},
             Case{"clone a process", EPERM},
             Case{"signal its parent", EPERM},
             Case{"raise a limit", EPERM},
             Case{"make a file in memory", EPERM},
             Case{"run a program", EPERM},
         }) {
        EXPECT_EQ(caged.value(QString::fromLatin1(attempt), -1), expected) << attempt;
    }
    EXPECT_FALSE(QFile::exists(m_folder.filePath(QStringLiteral("new"))));
}

TEST_F(Cage, IsWhatForbidsIt)
{
    const auto free = outcomes(QStringLiteral("free"), m_folder.path());
    for (const auto* attempt :
         {"read a file", "read the password file", "read its environment", "list a folder", "write a file",
          "create a file", "rename a file", "make a folder", "change a file's mode",
          "open an internet socket", "open a local socket", "make a socket pair", "fork", "clone a process",
          "signal its parent", "make a file in memory", "run a program", "take 8 GB"}) {
        EXPECT_EQ(free.value(QString::fromLatin1(attempt), -1), 0) << attempt;
    }
}

} // namespace
} // namespace ovrin
