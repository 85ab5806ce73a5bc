#include "platform/instance/WindowActivation.h"

#include "platform/instance/StartupNotification.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

namespace ovrin {

void bringForward(QWindow& window, const ActivationToken& token)
{
    // Qt's Wayland client takes the token from there when it next asks for the focus, and removes it.
    if (!token.activation.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.activation);
    if (!window.isVisible())
        window.show();
    else if (window.windowStates() & Qt::WindowMinimized)
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    if (auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        StartupNotification::complete(x11->connection(), xcb_window_t(window.winId()), token.startupId);
    window.raise();
    window.requestActivate();
}

} // namespace ovrin
