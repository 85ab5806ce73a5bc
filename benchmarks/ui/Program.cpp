#include "Program.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>

namespace ovrin {

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The sum over the threads of what the scheduler says that each has run.
double processorMilliseconds(const QString& process)
{
    double sum = 0;
    const QDir tasks(process + QStringLiteral("/task"));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += contents(tasks.filePath(task) + QStringLiteral("/schedstat")).split(' ').first().toDouble();
    return sum / 1e6;
}

double megabytes(const QByteArray& rollup, const QString& name)
{
    static const QString line = QStringLiteral("^%1:\\s+(\\d+) kB");
    const QRegularExpression pattern(line.arg(name), QRegularExpression::MultilineOption);
    return pattern.match(QString::fromLatin1(rollup)).captured(1).toDouble() / 1024;
}

} // namespace

Start startOf(const QString& program, const QStringList& arguments, const QString& folder, bool isOurs)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Qt itself says when a frame is through: the program is the one that people run.
    environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                       QStringLiteral("qt.scenegraph.time.renderloop.debug=true;ovrin.start.debug=true"));
    environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder);
    // No other program lies beside it, whose leavings would be taken up.
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);

    Start start;
    QElapsedTimer timer;
    QByteArray said;
    const auto untilFrameAfter = [&](qsizetype from) {
        while (said.indexOf("rame rendered", from) < 0) {
            if (!process.waitForReadyRead(20'000))
                qFatal("%s showed no frame: %s", qPrintable(program), said.constData());
            said += process.readAll();
        }
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    };
    timer.start();
    process.start(program, arguments);
    start.wall = untilFrameAfter(0);
    const QString folderOfProcess = QStringLiteral("/proc/%1").arg(process.processId());
    start.processor = processorMilliseconds(folderOfProcess);
    start.filled = start.wall;
    if (isOurs) {
        const QByteArray mark = "The library stands in the window.";
        while (!said.contains(mark) && process.waitForReadyRead(20'000))
            said += process.readAll();
        start.filled = untilFrameAfter(said.indexOf(mark));
    }
    QThread::sleep(1);
    const QByteArray rollup = contents(folderOfProcess + QStringLiteral("/smaps_rollup"));
    start.proportional = megabytes(rollup, QStringLiteral("Pss"));
    start.own = megabytes(rollup, QStringLiteral("Private_Dirty"));
    process.terminate();
    if (!process.waitForFinished(5000))
        process.kill();
    process.waitForFinished();
    return start;
}

} // namespace ovrin
