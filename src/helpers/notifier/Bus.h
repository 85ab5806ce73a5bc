#pragma once

#include <dbus/dbus.h>

#include <functional>
#include <memory>
#include <string>

namespace ovrin::notifier {

struct FreeMessage
{
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, FreeMessage>;

/// A connection to a session bus, driven by whoever polls its descriptor. Closed with the object.
class Bus
{
public:
    /// Called for every signal; an error of the connection itself is the signal "Disconnected".
    using SignalHandler = std::function<void(DBusMessage*)>;
    /// Called once; the message is an error when the call failed, by whatever way.
    using ReplyHandler = std::function<void(DBusMessage*)>;

    /// Null when there is no bus at `address`.
    static std::unique_ptr<Bus> open(const std::string& address, SignalHandler handler);
    ~Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    void call(Message message, ReplyHandler handler);
    void send(Message message);
    void watch(const std::string& rule);

    int descriptor() const;
    /// What to poll the descriptor for.
    short events() const;
    /// Reads, writes and calls handlers, without waiting.
    void process();

private:
    Bus(DBusConnection* connection, SignalHandler handler);

    DBusConnection* m_connection;
    SignalHandler m_handler;
};

} // namespace ovrin::notifier
