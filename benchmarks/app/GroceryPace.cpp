// Forty lines to a local list of the real task service, as the window sends them: how long until it says so,
// and the longest that the window's event loop stood still meanwhile. Run it within dbus-run-session.

#include "app/Groceries.h"

#include <QCoro/QCoroTask>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>

#include <cstdio>

using namespace ovrin;

namespace {

constexpr int rounds = 8;
constexpr int lines = 40;

double milliseconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

/// The longest time between two turns of the event loop, which always has something to do.
class Heartbeat
{
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        m_timer.callOnTimeout([this] {
            m_worst = std::max(m_worst, milliseconds(m_since));
            m_since.restart();
        });
    }
    void start()
    {
        m_worst = 0;
        m_since.start();
        m_timer.start();
    }
    /// With the millisecond that the loop sleeps of itself.
    double worst() const { return std::max(m_worst, milliseconds(m_since)); }

private:
    QTimer m_timer;
    QElapsedTimer m_since;
    double m_worst = 0;
};

QCoro::Task<void> measure(Heartbeat& heartbeat, Groceries& groceries)
{
    QStringList items;
    for (int i = 0; i < lines; ++i)
        items.append(QStringLiteral("%1 cups of something finely chopped").arg(i));
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        heartbeat.start();
        const QString said = co_await groceries.add(items, QStringLiteral("Soup %1").arg(round));
        const double took = milliseconds(timer);
        std::printf("%-34s %7.1f ms   longest stall %5.2f ms   “%s”\n",
                    round == 0 ? "the service started by it" : "the service running", took, heartbeat.worst(),
                    qPrintable(said));
    }
    // For comparison: the loop with nothing else to do.
    heartbeat.start();
    QTimer::singleShot(1000, [&] {
        std::printf("%-34s              longest stall %5.2f ms\n", "nothing going on", heartbeat.worst());
        QCoreApplication::quit();
    });
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const QString folder = home.filePath(QString::fromLatin1(name));
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(name, folder.toUtf8());
    }
    qputenv("GSETTINGS_BACKEND", "memory");
    QCoreApplication application(argc, argv);
    Heartbeat heartbeat;
    Groceries groceries;
    const auto measuring = measure(heartbeat, groceries);
    return QCoreApplication::exec();
}
