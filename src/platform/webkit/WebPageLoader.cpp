#include "platform/webkit/WebPageLoader.h"

#include "helpers/page-renderer/Outcome.h"
#include "import/error/RecipeImportError.h"

#include <QCoro/QCoroFuture>

#include <QtCore/QFuture>
#include <QtCore/QProcess>
#include <QtCore/QPromise>
#include <QtCore/QTimer>

#include <csignal>
#include <unistd.h>

namespace ovrin {
namespace {

using namespace std::chrono_literals;

/// The helper ends itself two seconds after its time at the latest; this is for one that does not.
constexpr auto grace = 4s;

bool isWebAddress(const QUrl& url)
{
    const QString scheme = url.scheme();
    return url.isValid() && !url.host().isEmpty() &&
           (scheme == QLatin1String("http") || scheme == QLatin1String("https"));
}

void start(QProcess& process, const QString& program, const QUrl& url, std::chrono::milliseconds timeout)
{
    process.setProgram(program);
    process.setArguments({QStringLiteral("--timeout"), QString::number(timeout.count()),
                          QString::fromLatin1(url.toEncoded())});
    process.setStandardErrorFile(QProcess::nullDevice());
    // A session and group of its own: a signal from the terminal is not for it, and one kill reaches it
    // whole.
    process.setChildProcessModifier([] { ::setsid(); });
    process.start();
}

/// Finished once the process is no more, or could not be started. To be called before it is.
QFuture<void> ended(QProcess& process)
{
    const auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    QObject::connect(&process, &QProcess::stateChanged, &process, [promise](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning)
            promise->finish();
    });
    return promise->future();
}

void killGroup(const QProcess& process)
{
    // Of a process that has ended the number is 0, and group 0 would be our own.
    if (const auto group = static_cast<pid_t>(process.processId()); group > 1)
        ::kill(-group, SIGKILL);
}

RenderOutcome outcome(const QProcess& process)
{
    if (process.error() == QProcess::FailedToStart || process.exitStatus() != QProcess::NormalExit)
        return RenderOutcome::Failed;
    return static_cast<RenderOutcome>(process.exitCode());
}

} // namespace

WebPageLoader::WebPageLoader(QString program)
    : m_program(std::move(program))
{
}

QCoro::Task<QString> WebPageLoader::html(QUrl url, std::chrono::milliseconds timeout, std::stop_token stop)
{
    if (!isWebAddress(url))
        throw TransportError(TransportError::Case::UnsupportedAddress);
    if (stop.stop_requested())
        throw ImportCancelled();

    QProcess process;
    const QFuture<void> end = ended(process);
    // The pipe to the helper is its life line; closed, the helper ends its family and then itself.
    const auto letGo = [&process] { process.closeWriteChannel(); };
    // The stop may be requested in any thread.
    const std::stop_callback onStop(
        stop, [&] { QMetaObject::invokeMethod(&process, letGo, Qt::QueuedConnection); });
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [&process, letGo] {
        if (process.bytesAvailable() > static_cast<qint64>(maxRenderedBytes))
            letGo();
    });
    QTimer::singleShot(timeout + grace, &process, [&process] { killGroup(process); });
    start(process, m_program, url, timeout);
    co_await end;

    if (stop.stop_requested())
        throw ImportCancelled();
    switch (outcome(process)) {
    case RenderOutcome::Rendered:
        co_return QString::fromUtf8(process.readAllStandardOutput());
    case RenderOutcome::TimedOut:
        throw TransportError(TransportError::Case::TimedOut);
    default:
        throw TransportError(TransportError::Case::NoAnswer);
    }
}

} // namespace ovrin
