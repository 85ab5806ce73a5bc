#include "app/CommandLine.h"
#include "app/OvrinApp.h"
#include "app/StoreProblem.h"
#include "platform/instance/HandOver.h"
#include "platform/instance/LibraryName.h"
#include "platform/instance/RunningInstance.h"

#include <QtCore/QDir>
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

/// A later start is over before anything of a window is made. Without an application of its own: the end of
/// one takes Qt Quick's accessibility along, for the one that comes after it as well.
HandOver handOverEarly(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    CommandLine line;
    if (!line.isPlainStart(arguments) || line.isService())
        return HandOver::NobodyThere;
    return handOverTo(libraryName(OvrinApp::libraryFolder(line.store())), line.request());
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
    const HandOver early = handOverEarly(argc, argv);
    if (early == HandOver::Done)
        return 0;

    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Ovrin"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.ovrin.Ovrin"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.ovrin.Ovrin")));
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    CommandLine line;
    line.process(QCoreApplication::arguments());
    RunningInstance instance(QDBusConnection::sessionBus());
    if (!takesLibrary(instance, line, early != HandOver::NoAnswer))
        return 0;

    const auto folders = OvrinApp::Folders::usual(line.store());
    RecipeStore::Options options;
    options.folder = folders.library;
    options.locale = QLocale();
    RecipeStore::Opened opened = RecipeStore::open(std::move(options));
    if (!opened.store) {
        std::fprintf(stderr, "Couldn't open the recipe library: %s\n", qPrintable(opened.error));
        const auto other = askForAnotherLibrary(folders.library, opened.error);
        // A start of its own, so that what holds for one library holds for the other.
        const bool isStarted = other && QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                                                {QStringLiteral("--store"), *other});
        return isStarted ? 0 : 1;
    }
    OvrinApp app(std::move(opened.store), folders);
    if (!opened.notice.isEmpty())
        app.say(opened.notice);
    QObject::connect(&instance, &RunningInstance::requested, &app, [&app](const StartRequest& request) {
        if (!app.hasWindow() && !app.openWindow())
            return QCoreApplication::exit(1);
        app.bringForward(request.token);
        app.serve(request);
    });
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
    return QGuiApplication::exec();
}
