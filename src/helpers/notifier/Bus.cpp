#include "helpers/notifier/Bus.h"

#include <poll.h>

namespace ovrin::notifier {

std::unique_ptr<Bus> Bus::open(const std::string& address, SignalHandler handler)
{
    if (address.empty())
        return nullptr;
    DBusConnection* connection = dbus_connection_open_private(address.c_str(), nullptr);
    if (!connection)
        return nullptr;
    dbus_connection_set_exit_on_disconnect(connection, false);
    std::unique_ptr<Bus> bus(new Bus(connection, std::move(handler)));
    return dbus_bus_register(connection, nullptr) ? std::move(bus) : nullptr;
}

Bus::Bus(DBusConnection* connection, SignalHandler handler)
    : m_connection(connection)
    , m_handler(std::move(handler))
{
    const auto filter = [](DBusConnection*, DBusMessage* message, void* self) {
        if (dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_SIGNAL)
            static_cast<Bus*>(self)->m_handler(message);
        return DBUS_HANDLER_RESULT_NOT_YET_HANDLED;
    };
    dbus_connection_add_filter(m_connection, filter, this, nullptr);
}

Bus::~Bus()
{
    dbus_connection_close(m_connection);
    dbus_connection_unref(m_connection);
}

void Bus::call(Message message, ReplyHandler handler)
{
    DBusPendingCall* pending = nullptr;
    // Without a time limit of its own: the bus answers for a service that goes away.
    if (!dbus_connection_send_with_reply(m_connection, message.get(), &pending, DBUS_TIMEOUT_INFINITE) ||
        !pending)
        return;
    const auto notify = [](DBusPendingCall* call, void* data) {
        const Message reply(dbus_pending_call_steal_reply(call));
        (*static_cast<ReplyHandler*>(data))(reply.get());
    };
    const auto free = [](void* data) { delete static_cast<ReplyHandler*>(data); };
    dbus_pending_call_set_notify(pending, notify, new ReplyHandler(std::move(handler)), free);
    dbus_pending_call_unref(pending);
}

void Bus::send(Message message)
{
    dbus_message_set_no_reply(message.get(), true);
    dbus_connection_send(m_connection, message.get(), nullptr);
}

void Bus::watch(const std::string& rule)
{
    dbus_bus_add_match(m_connection, rule.c_str(), nullptr);
}

int Bus::descriptor() const
{
    int descriptor = -1;
    dbus_connection_get_unix_fd(m_connection, &descriptor);
    return descriptor;
}

short Bus::events() const
{
    return static_cast<short>(dbus_connection_has_messages_to_send(m_connection) ? POLLIN | POLLOUT : POLLIN);
}

void Bus::process()
{
    dbus_connection_read_write(m_connection, 0);
    while (dbus_connection_dispatch(m_connection) == DBUS_DISPATCH_DATA_REMAINS) {
    }
}

} // namespace ovrin::notifier
