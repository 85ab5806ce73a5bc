#include "app/CommandLine.h"
#include "app/OvrinApp.h"
#include "app/StoreProblem.h"
#include "app/WindowFrame.h"
#include "platform/instance/HandOver.h"
#include "platform/instance/LibraryName.h"
#include "platform/instance/RunningInstance.h"
#include "ui/Views.h"

#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFutureWatcher>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtQuick/QQuickWindow>

#include <cstdio>

using namespace ovrin;

namespace {

/// How long a program that the bus started waits to be told what for.
constexpr auto serviceIdle = std::chrono::seconds(10);

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("ovrin"));
    QCoreApplication::setOrganizationName(QStringLiteral("ovrin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OVRIN_VERSION));
}

HandOver handOverTo(const QString& library, StartRequest request)
{
    request.token = ActivationToken::fromEnvironment();
    const QString connection = QStringLiteral("hand-over");
    const HandOver result =
        handOver(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection), library, request);
    QDBusConnection::disconnectFromBus(connection);
    return result;
}

RecipeStore::Opening beginOpening(const CommandLine& line)
{
    RecipeStore::Options options;
    options.folder = OvrinApp::libraryFolder(line.store());
    options.locale = QLocale();
    return RecipeStore::beginOpening(std::move(options));
}

/// The window lives meanwhile. Not for a library that is there already: it is to come with the first frame.
void waitFor(const RecipeStore::Opening& opening)
{
    if (opening.isReady.isFinished())
        return;
    QEventLoop loop;
    QFutureWatcher<void> watcher;
    QObject::connect(&watcher, &QFutureWatcher<void>::finished, &loop, &QEventLoop::quit);
    watcher.setFuture(opening.isReady);
    loop.exec();
}

/// What can be done before anything of a window is made.
struct Beginning
{
    HandOver handOver = HandOver::NobodyThere;
    /// None when the command line holds what only the application's own parts understand.
    RecipeStore::Opening opening = {};
};

/// A later start is over here; the first one has its library read meanwhile. Without an application of its
/// own: the end of one takes Qt Quick's accessibility along, for the one that comes after it as well.
Beginning begin(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    CommandLine line;
    if (!line.isPlainStart(arguments))
        return {};
    HandOver result = HandOver::NobodyThere;
    if (!line.isService())
        result = handOverTo(libraryName(OvrinApp::libraryFolder(line.store())), line.request());
    return {result, result == HandOver::Done ? RecipeStore::Opening() : beginOpening(line)};
}

/// Whether this process is to show the library itself; otherwise another one does.
bool takesLibrary(RunningInstance& instance, const CommandLine& line, bool isAnswered)
{
    const QString usual = OvrinApp::libraryFolder({});
    const QString library = OvrinApp::libraryFolder(line.store());
    switch (instance.claim(library, libraryName(library) == libraryName(usual))) {
    case RunningInstance::Claim::Taken:
        return true;
    case RunningInstance::Claim::Alone:
        qInfo("No session bus: this Ovrin will not take what later starts ask for.");
        return true;
    case RunningInstance::Claim::HeldByAnother:
        break;
    }
    if (isAnswered && handOverTo(libraryName(library), line.request()) == HandOver::Done)
        return false;
    qWarning("Another Ovrin shows this library and does not answer.");
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    nameApplication();
    const Beginning beginning = begin(argc, argv);
    if (beginning.handOver == HandOver::Done)
        return 0;

    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Ovrin"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.ovrin.Ovrin"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.ovrin.Ovrin")));
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    CommandLine line;
    line.process(QCoreApplication::arguments());
    QQmlEngine engine;
    beginViews(engine);
    RunningInstance instance(QDBusConnection::sessionBus());
    if (!takesLibrary(instance, line, beginning.handOver != HandOver::NoAnswer))
        return 0;

    const RecipeStore::Opening opening = beginning.opening.opened ? beginning.opening : beginOpening(line);
    WindowFrame frame(engine);
    if (!line.isService() && !frame.open())
        return 1;
    QList<StartRequest> early;
    const auto waiting = QObject::connect(&instance, &RunningInstance::requested, &instance,
                                          [&early](const StartRequest& request) { early.append(request); });
    waitFor(opening);
    RecipeStore::Opened opened = opening.opened();
    if (!opened.store) {
        // One window gives way to the other; the program does not end between them.
        QGuiApplication::setQuitOnLastWindowClosed(false);
        frame.destroy();
        QGuiApplication::setQuitOnLastWindowClosed(true);
        std::fprintf(stderr, "Couldn't open the recipe library: %s\n", qPrintable(opened.error));
        const auto other = askForAnotherLibrary(OvrinApp::libraryFolder(line.store()), opened.error);
        // A start of its own, so that what holds for one library holds for the other.
        const bool isStarted = other && QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                                                {QStringLiteral("--store"), *other});
        return isStarted ? 0 : 1;
    }
    // Closed before there was anything to see.
    if (!line.isService() && !frame.window()->isVisible() && early.isEmpty())
        return 0;
    OvrinApp app(std::move(opened.store), OvrinApp::Folders::usual(line.store()), frame);
    if (!opened.notice.isEmpty())
        app.say(opened.notice);
    const auto answer = [&app](const StartRequest& request) {
        if (!app.hasWindow() && !app.openWindow())
            return QCoreApplication::exit(1);
        app.bringForward(request.token);
        app.serve(request);
    };
    QObject::disconnect(waiting);
    QObject::connect(&instance, &RunningInstance::requested, &app, answer);
    if (line.isService()) {
        QTimer::singleShot(serviceIdle, &app, [&app] {
            if (!app.hasWindow())
                QCoreApplication::quit();
        });
    } else if (app.openWindow()) {
        app.serve(line.request());
    } else {
        return 1;
    }
    for (const StartRequest& request : early)
        answer(request);
    return QGuiApplication::exec();
}
