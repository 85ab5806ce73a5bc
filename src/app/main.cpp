#include "app/OvrinApp.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtQuick/QQuickWindow>

#include <cstdio>

using namespace ovrin;

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("ovrin"));
    QGuiApplication::setOrganizationName(QStringLiteral("ovrin"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Ovrin"));
    QGuiApplication::setApplicationVersion(QStringLiteral(OVRIN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.ovrin.Ovrin"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.ovrin.Ovrin")));
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Keep, scale and cook from your recipes."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption storeOption(
        QStringLiteral("store"), QStringLiteral("Use the library in this folder."), QStringLiteral("folder"));
    const QCommandLineOption newOption(QStringLiteral("new-recipe"), QStringLiteral("Open on a new recipe."));
    const QCommandLineOption importOption(QStringLiteral("import"),
                                          QStringLiteral("Open on the import sheet."));
    parser.addOptions({storeOption, newOption, importOption});
    parser.addPositionalArgument(QStringLiteral("address"), QStringLiteral("Files and links to open."),
                                 QStringLiteral("[address...]"));
    parser.process(application);

    const auto folders = OvrinApp::Folders::usual(parser.value(storeOption));
    RecipeStore::Options options;
    options.folder = folders.library;
    options.locale = QLocale();
    RecipeStore::Opened opened = RecipeStore::open(std::move(options));
    if (!opened.store) {
        std::fprintf(stderr, "Couldn't open the recipe library: %s\n", qPrintable(opened.error));
        return 1;
    }
    OvrinApp app(std::move(opened.store), folders);
    if (!app.openWindow())
        return 1;
    if (!opened.notice.isEmpty())
        app.say(opened.notice);
    for (const QString& address : parser.positionalArguments())
        app.handle(QUrl::fromUserInput(address, QDir::currentPath(), QUrl::AssumeLocalFile));
    if (parser.isSet(newOption))
        app.createRecipe();
    else if (parser.isSet(importOption))
        app.showImportSheet();
    return QGuiApplication::exec();
}
