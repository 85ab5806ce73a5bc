#include "app/StoreProblem.h"

#include "platform/desktop/PortalAppearance.h"
#include "ui/Views.h"

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

namespace ovrin {

std::optional<QString> askForAnotherLibrary(const QString& folder, const QString& problem)
{
    PortalAppearance appearance;
    QQmlEngine engine;
    prepareViews(engine);
    QQmlComponent component(&engine, storeProblemUrl());
    const std::unique_ptr<QObject> window(component.createWithInitialProperties(
        {{QStringLiteral("appearance"), QVariant::fromValue<Appearance*>(&appearance)},
         {QStringLiteral("problem"), problem},
         {QStringLiteral("folder"), QDir::toNativeSeparators(folder)}}));
    if (!window) {
        qCritical("%s", qPrintable(component.errorString()));
        return std::nullopt;
    }
    // Until the window is closed, the only one there is.
    QGuiApplication::exec();
    const QUrl chosen = window->property("chosen").toUrl();
    return chosen.isLocalFile() ? std::optional(chosen.toLocalFile()) : std::nullopt;
}

} // namespace ovrin
