#include "ui/Views.h"

#include "ui/images/DraftPhotos.h"
#include "ui/images/PhotoProvider.h"
#include "ui/images/RecipePhotos.h"
#include "ui/images/SymbolProvider.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

// Made by Qt's build step. Nothing else refers to it, and a linker takes from a library only what is referred
// to.
void qml_register_types_Ovrin();

namespace ovrin {

namespace {

void addModule(QQmlEngine& engine)
{
    qml_register_types_Ovrin();
    engine.addImportPath(QStringLiteral(":/"));
}

} // namespace

void beginViews(QQmlEngine& engine)
{
    addModule(engine);
    for (const char* file : {"MainWindow", "ContentView"}) {
        const QUrl url(QStringLiteral("qrc:/Ovrin/library/%1.qml").arg(QLatin1String(file)));
        auto* const view = new QQmlComponent(&engine, url, QQmlComponent::Asynchronous, &engine);
        // What has been read stays with the engine.
        QObject::connect(view, &QQmlComponent::statusChanged, view, &QObject::deleteLater);
    }
}

void prepareViews(QQmlEngine& engine)
{
    addModule(engine);
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolProvider);
}

void prepareViews(QQmlEngine& engine, RecipePhotos& photos, DraftPhotos& drafts)
{
    prepareViews(engine);
    const auto bytes = [&photos, &drafts](const QString& key) {
        const QString rest = key.section(u'/', 1);
        return key.startsWith(QStringLiteral("draft/")) ? drafts.bytes(rest) : photos.bytes(rest);
    };
    engine.addImageProvider(QStringLiteral("photo"), new PhotoProvider(&photos, bytes));
}

QUrl mainWindowUrl()
{
    return QUrl(QStringLiteral("qrc:/Ovrin/library/MainWindow.qml"));
}

QUrl storeProblemUrl()
{
    return QUrl(QStringLiteral("qrc:/Ovrin/library/StoreProblem.qml"));
}

} // namespace ovrin
