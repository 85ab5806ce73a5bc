#include "app/WindowFrame.h"

#include "app/WindowPlace.h"
#include "ui/Views.h"
#include "ui/library/LibraryWindow.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLoggingCategory>
#include <QtQml/QQmlComponent>

namespace ovrin {

Q_LOGGING_CATEGORY(start, "ovrin.start", QtWarningMsg)

WindowFrame::WindowFrame(QQmlEngine& engine)
    : m_engine(engine)
{
    QObject::connect(&m_engine, &QQmlEngine::quit, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

WindowFrame::~WindowFrame() = default;

bool WindowFrame::open()
{
    if (m_window)
        return true;
    QQmlComponent component(&m_engine, mainWindowUrl());
    std::unique_ptr<QObject> made(component.createWithInitialProperties(
        {{QStringLiteral("appearance"), QVariant::fromValue<Appearance*>(&m_appearance)}}));
    auto* const window = qobject_cast<QQuickWindow*>(made.get());
    if (!window) {
        qCritical("%s", qPrintable(component.errorString()));
        return false;
    }
    static_cast<void>(made.release());
    m_window.reset(window);
    m_place = std::make_unique<WindowPlace>(*m_window, m_settings, QStringLiteral("libraryWindow"));
    m_window->show();
    m_window->requestActivate();
    return true;
}

void WindowFrame::fill(LibraryWindow& model)
{
    m_window->setProperty("model", QVariant::fromValue(&model));
    qCDebug(start, "The library stands in the window.");
}

void WindowFrame::destroy()
{
    m_place.reset();
    m_window.reset();
}

} // namespace ovrin
