#include "helpers/notifier/Note.h"

#include <string_view>

namespace ovrin::notifier {

namespace {

Message method(const char* name)
{
    return Message(dbus_message_new_method_call(notificationService, "/org/freedesktop/Notifications",
                                                notificationService, name));
}

std::string withoutMarkup(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else
            result += c;
    }
    return result;
}

void append(DBusMessageIter* to, const std::string& text)
{
    // The bus drops a client that sends anything but UTF-8.
    const char* const value = dbus_validate_utf8(text.c_str(), nullptr) ? text.c_str() : "";
    dbus_message_iter_append_basic(to, DBUS_TYPE_STRING, &value);
}

void append(DBusMessageIter* to, std::uint32_t number)
{
    dbus_message_iter_append_basic(to, DBUS_TYPE_UINT32, &number);
}

void appendHint(DBusMessageIter* hints, const char* name, char type, const void* value)
{
    const char signature[] = {type, '\0'};
    DBusMessageIter entry;
    DBusMessageIter variant;
    dbus_message_iter_open_container(hints, DBUS_TYPE_DICT_ENTRY, nullptr, &entry);
    dbus_message_iter_append_basic(&entry, DBUS_TYPE_STRING, static_cast<const void*>(&name));
    dbus_message_iter_open_container(&entry, DBUS_TYPE_VARIANT, signature, &variant);
    dbus_message_iter_append_basic(&variant, type, value);
    dbus_message_iter_close_container(&entry, &variant);
    dbus_message_iter_close_container(hints, &entry);
}

/// "desktop-entry" is left out on purpose: some desktops take an application's notes away when their sender
/// leaves the bus, and the notifier leaves as soon as it can.
void appendHints(DBusMessageIter* arguments, const Timer& timer)
{
    DBusMessageIter hints;
    dbus_message_iter_open_container(arguments, DBUS_TYPE_ARRAY, "{sv}", &hints);
    const unsigned char urgency = timer.isUrgent ? 2 : 1;
    appendHint(&hints, "urgency", DBUS_TYPE_BYTE, &urgency);
    if (timer.hasSound) {
        const char* const sound = "alarm-clock-elapsed";
        appendHint(&hints, "sound-name", DBUS_TYPE_STRING, static_cast<const void*>(&sound));
    } else {
        const dbus_bool_t isSilent = true;
        appendHint(&hints, "suppress-sound", DBUS_TYPE_BOOLEAN, &isSilent);
    }
    dbus_message_iter_close_container(arguments, &hints);
}

} // namespace

Message capabilitiesQuestion()
{
    return method("GetCapabilities");
}

ServiceCapabilities capabilitiesOf(DBusMessage* reply)
{
    ServiceCapabilities capabilities;
    DBusMessageIter arguments;
    if (!dbus_message_has_signature(reply, "as") || !dbus_message_iter_init(reply, &arguments))
        return capabilities;
    DBusMessageIter names;
    for (dbus_message_iter_recurse(&arguments, &names);
         dbus_message_iter_get_arg_type(&names) == DBUS_TYPE_STRING; dbus_message_iter_next(&names)) {
        const char* name = nullptr;
        dbus_message_iter_get_basic(&names, static_cast<void*>(&name));
        capabilities.takesMarkup |= std::string_view(name) == "body-markup";
        capabilities.takesActions |= std::string_view(name) == "actions";
    }
    return capabilities;
}

Message noteOf(const Timer& timer, const ServiceCapabilities& capabilities, const ActionLabels* labels)
{
    Message message = method("Notify");
    DBusMessageIter arguments;
    dbus_message_iter_init_append(message.get(), &arguments);
    append(&arguments, std::string("Ovrin"));
    append(&arguments, std::uint32_t(0));
    append(&arguments, std::string("ovrin"));
    append(&arguments, timer.title);
    append(&arguments, capabilities.takesMarkup ? withoutMarkup(timer.body) : timer.body);

    DBusMessageIter actions;
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "s", &actions);
    if (labels && capabilities.takesActions) {
        for (const std::string& text : {std::string("stop"), labels->stop, std::string("show"), labels->show})
            append(&actions, text);
    }
    dbus_message_iter_close_container(&arguments, &actions);

    appendHints(&arguments, timer);
    // 0: until it is seen. -1 would leave it to the service.
    const dbus_int32_t timeout = timer.isUrgent ? 0 : -1;
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_INT32, &timeout);
    return message;
}

std::uint32_t noteNumberOf(DBusMessage* reply)
{
    dbus_uint32_t number = 0;
    dbus_message_get_args(reply, nullptr, DBUS_TYPE_UINT32, &number, DBUS_TYPE_INVALID);
    return number;
}

Message closingOf(std::uint32_t note)
{
    Message message = method("CloseNotification");
    DBusMessageIter arguments;
    dbus_message_iter_init_append(message.get(), &arguments);
    append(&arguments, note);
    return message;
}

} // namespace ovrin::notifier
