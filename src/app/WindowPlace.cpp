#include "app/WindowPlace.h"

#include <QtCore/QSettings>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace ovrin {

namespace {
const QString maximizedSuffix = QStringLiteral("Maximized");
} // namespace

WindowPlace::WindowPlace(QWindow& window, QSettings& settings, QString key)
    : m_window(window)
    , m_settings(settings)
    , m_key(std::move(key))
{
    restore();
    m_soon.setSingleShot(true);
    m_soon.setInterval(std::chrono::milliseconds(500));
    connect(&m_soon, &QTimer::timeout, this, &WindowPlace::store);
    const auto changed = [this] { note(); };
    connect(&window, &QWindow::widthChanged, this, changed);
    connect(&window, &QWindow::heightChanged, this, changed);
    connect(&window, &QWindow::xChanged, this, changed);
    connect(&window, &QWindow::yChanged, this, changed);
    connect(&window, &QWindow::visibilityChanged, this, changed);
}

WindowPlace::~WindowPlace()
{
    if (m_soon.isActive())
        store();
}

void WindowPlace::restore()
{
    const QRect place = m_settings.value(m_key).toRect();
    if (place.isEmpty())
        return;
    // A screen that is no longer there leaves the size, and the place to the window system.
    m_window.resize(place.size().expandedTo(m_window.minimumSize()));
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (screen && screen->availableGeometry().intersects(place))
        m_window.setPosition(place.topLeft());
    if (m_settings.value(m_key + maximizedSuffix).toBool())
        m_window.setWindowState(Qt::WindowMaximized);
}

void WindowPlace::note()
{
    // Now: a window that is closed before it is stored has no place any more.
    const QWindow::Visibility visibility = m_window.visibility();
    if (visibility != QWindow::Windowed && visibility != QWindow::Maximized)
        return;
    m_isMaximized = visibility == QWindow::Maximized;
    if (!m_isMaximized)
        m_place = m_window.geometry();
    m_soon.start();
}

void WindowPlace::store()
{
    if (!m_place.isEmpty())
        m_settings.setValue(m_key, m_place);
    m_settings.setValue(m_key + maximizedSuffix, m_isMaximized);
}

} // namespace ovrin
