#include "ui/cook/CookWindows.h"

#include "ui/cook/CookModeViewModel.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

namespace ovrin {

/// The window goes first: it is bound to the model.
struct CookWindows::Opened
{
    std::shared_ptr<void> awake;
    std::unique_ptr<CookModeViewModel> model;
    std::unique_ptr<QQuickWindow> window;
};

CookWindows::CookWindows(Services services, QObject* parent)
    : QObject(parent)
    , m_services(std::move(services))
{
}

CookWindows::~CookWindows() = default;

QQuickWindow* CookWindows::open(const QUuid& recipeId)
{
    if (const auto opened = m_windows.value(recipeId)) {
        if (opened->window->windowStates() & Qt::WindowMinimized)
            opened->window->showNormal();
        opened->window->raise();
        opened->window->requestActivate();
        return opened->window.get();
    }
    auto opened = std::make_shared<Opened>();
    opened->model =
        std::make_unique<CookModeViewModel>(m_services.store, m_services.photos, m_services.timers, recipeId);
    QQmlComponent component(&m_services.engine, QUrl(QStringLiteral("qrc:/Ovrin/cook/CookWindow.qml")));
    if (!component.isReady())
        qFatal("%s", qPrintable(component.errorString()));
    std::unique_ptr<QObject> made(component.createWithInitialProperties(
        {{QStringLiteral("cook"), QVariant::fromValue(opened->model.get())}}));
    opened->window.reset(qobject_cast<QQuickWindow*>(made.release()));
    if (m_services.keepAwake)
        opened->awake = m_services.keepAwake();
    m_windows.insert(recipeId, opened);
    connect(opened->window.get(), &QWindow::visibleChanged, this, [this, recipeId](bool isVisible) {
        // Later: the window is still in the middle of closing.
        if (!isVisible)
            QMetaObject::invokeMethod(
                this, [this, recipeId] { m_windows.remove(recipeId); }, Qt::QueuedConnection);
    });
    opened->window->show();
    opened->window->requestActivate();
    return opened->window.get();
}

} // namespace ovrin
