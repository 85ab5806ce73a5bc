#pragma once

#include <QtCore/QByteArray>

#include <xcb/xcb.h>

namespace ovrin {

/// Startup notification under X11.
/// Source: freedesktop.org, Startup Notification 0.2, and the window manager's `_NET_STARTUP_ID`.
namespace StartupNotification {

/// Tells the window manager that the start `id` led to `window`, which was there already: it gives the window
/// the focus by the time in the id, and takes the busy pointer away. Does nothing with an empty id.
void complete(xcb_connection_t* connection, xcb_window_t window, const QByteArray& id);

} // namespace StartupNotification

} // namespace ovrin
