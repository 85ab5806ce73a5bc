#include "platform/instance/StartupNotification.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace ovrin::StartupNotification {

namespace {

/// The message's quoting: a backslash before what would end the value.
QByteArray quoted(const QByteArray& text)
{
    QByteArray result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '"';
}

xcb_atom_t atom(xcb_connection_t* connection, const char* name)
{
    const auto cookie = xcb_intern_atom(connection, 0, uint16_t(std::strlen(name)), name);
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// Sends a message to everyone who listens at the root window, in pieces of 20 bytes, its end marked by a
/// zero.
void broadcast(xcb_connection_t* connection, xcb_window_t from, xcb_window_t root, const QByteArray& message)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = from;
    event.type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    const xcb_atom_t next = atom(connection, "_NET_STARTUP_INFO");
    const QByteArray bytes = message + '\0';
    constexpr qsizetype piece = sizeof event.data.data8;
    for (qsizetype start = 0; start < bytes.size(); start += piece) {
        std::memset(event.data.data8, 0, piece);
        std::memcpy(event.data.data8, bytes.constData() + start, std::min(piece, bytes.size() - start));
        xcb_send_event(connection, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
        event.type = next;
    }
}

} // namespace

void complete(xcb_connection_t* connection, xcb_window_t window, const QByteArray& id)
{
    if (id.isEmpty())
        return;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atom(connection, "_NET_STARTUP_ID"),
                        atom(connection, "UTF8_STRING"), 8, uint32_t(id.size()), id.constData());
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    broadcast(connection, window, screen->root, "remove: ID=" + quoted(id));
    xcb_flush(connection);
}

} // namespace ovrin::StartupNotification
