// How long after its end a note leaves, with the application running, quit and killed, and what waiting
// costs.

#include "cooking/NotificationPresenter.h"
#include "platform/notifications/DesktopNotificationCenter.h"
#include "support/dbus/NotificationService.h"
#include "support/dbus/PrivateBus.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>

using namespace ovrin;
using ovrin::testing::NotificationService;
using ovrin::testing::PrivateBus;

namespace {

constexpr int patience = 60'000;

qint64 elapsedNow()
{
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray field(const QByteArray& file, const QByteArray& name)
{
    for (const QByteArray& line : file.split('\n'))
        if (line.startsWith(name + ':'))
            return line.sliced(name.size() + 1).simplified();
    return {};
}

int notifier(const QString& folder)
{
    for (const QString& process : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}))
        if (contents(QStringLiteral("/proc/%1/cmdline").arg(process))
                .startsWith(OVRIN_NOTIFIER + QByteArray(1, '\0') + folder.toUtf8()))
            return process.toInt();
    return 0;
}

/// When each note is due, by its body, as the notifier has written it down.
std::map<QString, qint64> ends(const QString& folder)
{
    std::map<QString, qint64> result;
    for (const QByteArray& line : contents(folder + QStringLiteral("/timers")).split('\n'))
        if (const QByteArrayList parts = line.split('\t'); parts.first() == "at")
            result[QString::fromUtf8(parts.at(5))] = parts.at(2).toLongLong();
    return result;
}

void print(const char* what, std::vector<double> milliseconds)
{
    std::sort(milliseconds.begin(), milliseconds.end());
    if (!milliseconds.empty())
        std::printf("%-24s %4zu notes   median %6.1f ms   worst %6.1f ms\n", what, milliseconds.size(),
                    milliseconds[milliseconds.size() / 2], milliseconds.back());
}

void waitingCosts(const QString& folder)
{
    const QString process = QStringLiteral("/proc/%1/").arg(notifier(folder));
    const auto switches = [&] {
        return field(contents(process + QStringLiteral("status")), "voluntary_ctxt_switches").toInt();
    };
    const QByteArray memory = contents(process + QStringLiteral("smaps_rollup"));
    std::printf("waiting: resident %s, of that its own share (PSS) %s\n", field(memory, "Rss").constData(),
                field(memory, "Pss").constData());
    const int before = switches();
    QTest::qWait(3000);
    std::printf("wake-ups in 3 s between two ends: %d\n", switches() - before);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const PrivateBus bus;
    NotificationService service(bus.address());
    const NotificationPresenter presenter;
    std::map<QString, qint64> arrivals;
    QObject::connect(&service, &NotificationService::changed,
                     [&] { arrivals.emplace(service.notes.last().body, elapsedNow()); });
    const auto latencies = [&](const std::map<QString, qint64>& due) {
        std::vector<double> result;
        for (const auto& [body, end] : due)
            if (const auto arrived = arrivals.find(body); arrived != arrivals.end())
                result.push_back(double(arrived->second - end) / 1e6);
        arrivals.clear();
        return result;
    };

    for (const QString& end : {QStringLiteral("stay"), QStringLiteral("quit"), QStringLiteral("kill")}) {
        const QTemporaryDir folder;
        std::vector<std::unique_ptr<QProcess>> processes;
        constexpr int count = 8;
        for (int i = 0; i < count; ++i) {
            processes.push_back(std::make_unique<QProcess>());
            processes.back()->start(QStringLiteral(OVRIN_NOTIFYING_APPLICATION),
                                    {QStringLiteral(OVRIN_NOTIFIER), folder.path(), bus.address(),
                                     QStringLiteral("%1 %2").arg(end).arg(i), QString::number(2 + i / 4),
                                     end == QStringLiteral("quit") ? end : QStringLiteral("stay")});
            if (end == QStringLiteral("quit"))
                processes.back()->waitForFinished(patience);
            else
                processes.back()->waitForReadyRead(patience);
            if (end == QStringLiteral("kill"))
                processes.back()->kill();
        }
        const auto due = ends(folder.path());
        if (!QTest::qWaitFor([&] { return arrivals.size() == count; }, patience))
            std::printf("only %zu of %d notes came\n", arrivals.size(), count);
        print(qPrintable(QStringLiteral("application: ") + end), latencies(due));
        for (const auto& process : processes)
            process->kill();
        for (const auto& process : processes)
            process->waitForFinished();
    }

    const QTemporaryDir folder;
    DesktopNotificationCenter center({QStringLiteral(OVRIN_NOTIFIER), folder.path(), bus.address()});
    center.setDelegate(&presenter);
    bool isSettled = false;
    QObject::connect(&center, &DesktopNotificationCenter::settled, [&] { isSettled = true; });
    for (int i = 0; i < 1000; ++i)
        center.add({.id = QString::number(i),
                    .title = QStringLiteral("Timer done"),
                    .body = QStringLiteral("%1 minutes — Banana Bread").arg(i),
                    .seconds = 10});
    if (!QTest::qWaitFor([&] { return isSettled; }, patience))
        return 1;
    std::printf("a thousand timers ");
    waitingCosts(folder.path());
    const auto due = ends(folder.path());
    if (!QTest::qWaitFor([&] { return arrivals.size() == 1000; }, patience))
        return 1;
    print("a thousand at once", latencies(due));
    std::printf(
        "the most that the notifier ever held: %s\n",
        field(contents(QStringLiteral("/proc/%1/status").arg(notifier(folder.path()))), "VmHWM").constData());
    return 0;
}
