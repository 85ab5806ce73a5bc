#include "platform/sound/DesktopChime.h"
#include "platform/sound/ChimeWave.h"

#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>
#include <vector>

using namespace ovrin;

namespace {

constexpr int patience = 20'000;
constexpr int headerSize = 44;

std::vector<qint16> samples(const QByteArray& bytes)
{
    std::vector<qint16> found;
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        found.push_back(qFromLittleEndian<qint16>(bytes.constData() + at));
    return found;
}

int peak(const std::vector<qint16>& samples)
{
    int highest = 0;
    for (const qint16 sample : samples)
        highest = std::max(highest, std::abs(int(sample)));
    return highest;
}

/// A real sound server of the test's own, that plays into nothing, and a recorder on that nothing.
class DesktopChimeTest : public testing::Test
{
protected:
    DesktopChimeTest()
    {
        const QString socket = folder.filePath(QStringLiteral("sound"));
        qputenv("PULSE_SERVER", "unix:" + socket.toLocal8Bit());
        for (const char* kept : {"PULSE_RUNTIME_PATH", "XDG_CONFIG_HOME"})
            qputenv(kept, folder.path().toLocal8Bit());
        qputenv("CANBERRA_DRIVER", "pulse");
        server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        server.start(QStringLiteral("pulseaudio"),
                     {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                      QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                      QStringLiteral("--disable-shm=yes"), QStringLiteral("-L"),
                      QStringLiteral("module-null-sink sink_name=nowhere"), QStringLiteral("-L"),
                      QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=%1").arg(socket)});
        EXPECT_TRUE(server.waitForStarted());
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo::exists(socket); }, patience));
        recorder.start(QStringLiteral("parec"),
                       {QStringLiteral("--raw"), QStringLiteral("--format=s16le"),
                        QStringLiteral("--channels=1"), QStringLiteral("--rate=44100"),
                        QStringLiteral("--latency-msec=50"), QStringLiteral("--device=nowhere.monitor")});
        EXPECT_TRUE(recorder.waitForStarted());
    }
    ~DesktopChimeTest() override
    {
        for (QProcess* process : {&recorder, &server}) {
            process->kill();
            process->waitForFinished();
        }
    }
    /// Whether the recorder comes to hear something that `isEnough`.
    template<typename Predicate>
    bool isHeard(Predicate isEnough)
    {
        return QTest::qWaitFor(
            [&] {
                recorded += recorder.readAllStandardOutput();
                return isEnough(samples(recorded));
            },
            patience);
    }

    QTemporaryDir folder;
    QProcess server;
    QProcess recorder;
    QByteArray recorded;
};

TEST_F(DesktopChimeTest, IsHeardAtTheSoundServer)
{
    ASSERT_TRUE(isHeard([](const auto& heard) { return !heard.empty(); })) << "the recorder listens";
    EXPECT_EQ(peak(samples(recorded)), 0);
    DesktopChime chime;
    chime.ring();
    EXPECT_TRUE(isHeard([](const auto& heard) { return peak(heard) > 1'000; }));
}

TEST(DesktopChime, IsSilentWithoutAServer)
{
    qputenv("PULSE_SERVER", "unix:/nonexistent/sound");
    qputenv("CANBERRA_DRIVER", "pulse");
    DesktopChime chime;
    chime.ring();
    chime.ring();
}

TEST(ChimeWave, IsSoftAndEndsInSilence)
{
    const QByteArray wave = chimeWave();
    ASSERT_GT(wave.size(), headerSize);
    const std::vector<qint16> sound = samples(wave.mid(headerSize));
    EXPECT_LT(peak(sound), 32'767 * 2 / 5) << "never clipped, never loud";
    EXPECT_EQ(sound.front(), 0);
    EXPECT_LT(std::abs(int(sound.back())), 16);
}

} // namespace
