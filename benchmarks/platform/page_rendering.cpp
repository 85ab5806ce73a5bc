// What rendering costs: page_rendering [COUNT] [FILE]
// Renders COUNT times a page that inserts its JSON-LD some time after it has loaded, and prints how long
// after that moment the document was here, how much memory the processes had together, and whether any was
// left. FILE is an HTML document to put into the page, to weigh something heavier than an empty one.
#include "platform/PageServer.h"
#include "platform/RenderFamily.h"
#include "platform/VirtualDisplay.h"
#include "platform/webkit/WebPageLoader.h"

#include <QCoro/QCoroTimer>

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QTextStream>
#include <QtCore/QTimer>

#include <algorithm>

namespace {

using namespace ovrin;
using namespace std::chrono_literals;

/// Imports whose memory is watched; their times do not count, since watching takes time.
constexpr int weighed = 10;

QByteArray page(int delayMilliseconds, const QByteArray& filling)
{
    return "<!doctype html><title>Soup</title><script>addEventListener('load', () => setTimeout(() => {"
           "const s = document.createElement('script'); s.type = 'application/ld+json';"
           "s.textContent = 'inserted ' + Date.now(); document.head.append(s) }, " +
           QByteArray::number(delayMilliseconds) + "))</script>" + filling;
}

qint64 insertedAt(const QString& html)
{
    const QString mark = QStringLiteral("<script type=\"application/ld+json\">inserted ");
    const qsizetype start = html.indexOf(mark) + mark.size();
    return html.mid(start, html.indexOf(u'<', start) - start).toLongLong();
}

QString spread(QList<qint64> values, const char* unit)
{
    std::sort(values.begin(), values.end());
    if (values.isEmpty())
        return QStringLiteral("none");
    return QStringLiteral("median %1, 95th %2, worst %3 %4")
        .arg(values[values.size() / 2])
        .arg(values[values.size() * 95 / 100])
        .arg(values.back())
        .arg(QLatin1String(unit));
}

QCoro::Task<> run(int count, QByteArray filling, const test::RenderFamily& family)
{
    test::PageServer server;
    WebPageLoader loader(QStringLiteral(OVRIN_PAGE_RENDERER));
    QList<qint64> latencies;
    QList<qint64> durations;
    QList<qint64> memory;
    int leftAtOnce = 0;
    int leftLater = 0;
    for (int index = 0; index < count; ++index) {
        // A prime step walks through every phase of the half-second poll.
        server.page("/", page(200 + index * 37 % 500, filling));
        qint64 peak = 0;
        QTimer scales;
        QObject::connect(&scales, &QTimer::timeout, &scales,
                         [&] { peak = std::max(peak, family.proportionalKilobytes()); });
        if (index < weighed)
            scales.start(50ms);
        const qint64 start = QDateTime::currentMSecsSinceEpoch();
        const QString html = co_await loader.html(server.url("/"), 15s, {});
        const qint64 end = QDateTime::currentMSecsSinceEpoch();
        scales.stop();
        leftAtOnce += static_cast<int>(family.living().size());
        if (index < weighed) {
            memory += peak / 1024;
        } else {
            latencies += end - insertedAt(html);
            durations += end - start;
        }
        QTimer pause;
        pause.start(500ms);
        co_await pause;
        leftLater += static_cast<int>(family.living().size());
    }
    QTextStream(stdout) << "imports: " << count << "\ninsertion to document: " << spread(latencies, "ms")
                        << "\nwhole rendering: " << spread(durations, "ms")
                        << "\nmost memory (sum of PSS): " << spread(memory, "MB")
                        << "\nprocesses left at the end: " << leftAtOnce
                        << ", half a second later: " << leftLater
                        << "\nfiles left: " << family.leftovers().size() << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const test::VirtualDisplay display;
    qputenv("DISPLAY", display.name());
    const test::RenderFamily family;
    QByteArray filling;
    if (QFile file(arguments.value(2)); arguments.size() > 2 && file.open(QIODevice::ReadOnly))
        filling = file.readAll();
    QCoro::waitFor(run(arguments.value(1, QStringLiteral("20")).toInt(), filling, family));
    return 0;
}
