#include "platform/reminders/TaskService.h"

#include "platform/reminders/GHandles.h"

namespace ovrin {

namespace {
constexpr const char* serviceName = "org.gnome.evolution.dataserver.Sources5";
} // namespace

TaskService findTaskService(GCancellable* cancellable)
{
    GFailure failure;
    const GRef<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, failure));
    if (!bus)
        return TaskService::Absent;
    // The process-wide connection would otherwise end the process when the bus ends.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    for (const char* method : {"ListActivatableNames", "ListNames"}) {
        GFailure refused;
        GVariant* answer = g_dbus_connection_call_sync(
            bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
            nullptr, G_VARIANT_TYPE("(as)"), G_DBUS_CALL_FLAGS_NONE, -1, cancellable, refused);
        if (!answer)
            return refused.is(G_DBUS_ERROR, G_DBUS_ERROR_ACCESS_DENIED) ? TaskService::Denied
                                                                        : TaskService::Absent;
        const char** names = nullptr;
        g_variant_get(answer, "(^a&s)", &names);
        const bool isThere = g_strv_contains(names, serviceName);
        g_free(names);
        g_variant_unref(answer);
        if (isThere)
            return TaskService::Reachable;
    }
    return TaskService::Absent;
}

} // namespace ovrin
