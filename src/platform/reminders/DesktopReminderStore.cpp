#include "platform/reminders/DesktopReminderStore.h"

#include "platform/reminders/GHandles.h"

#include <QtCore/QCoreApplication>

#include <libecal/libecal.h>

namespace ovrin {

namespace {

constexpr const char* serviceName = "org.gnome.evolution.dataserver.Sources5";
constexpr const char* localAccount = "local-stub";

QString tr(const char* text)
{
    return QCoreApplication::translate("DesktopReminderStore", text);
}

/// A list of sources as the registry hands it out, each with a reference.
class SourceList
{
public:
    explicit SourceList(GList* list)
        : m_list(list)
    {
    }
    SourceList(const SourceList&) = delete;
    SourceList& operator=(const SourceList&) = delete;
    ~SourceList() { g_list_free_full(m_list, g_object_unref); }

    template<typename Use>
    void each(Use use) const
    {
        for (GList* node = m_list; node; node = node->next)
            use(E_SOURCE(node->data));
    }

private:
    GList* m_list;
};

ReminderStore::SourceKind kindOf(ESource* account)
{
    if (qstrcmp(e_source_get_uid(account), localAccount) == 0)
        return ReminderStore::SourceKind::Local;
    // A collection is an account (CalDAV among others) that makes its lists on the server.
    if (e_source_has_extension(account, E_SOURCE_EXTENSION_COLLECTION) &&
        e_source_get_remote_creatable(account))
        return ReminderStore::SourceKind::CalDav;
    return ReminderStore::SourceKind::Other;
}

ReminderStore::Source sourceOf(ESource* account)
{
    return {QString::fromUtf8(e_source_get_uid(account)), kindOf(account)};
}

/// Whether the session bus has the task service or can start it. Asking for the service without that gives an
/// object that only logs what it lacks.
enum class Service { Reachable, Denied, Absent };

Service findService(GCancellable* cancellable)
{
    GFailure failure;
    const GRef<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, failure));
    if (!bus)
        return Service::Absent;
    // The process-wide connection would otherwise end the process when the bus ends.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    for (const char* method : {"ListActivatableNames", "ListNames"}) {
        GFailure refused;
        GVariant* answer = g_dbus_connection_call_sync(
            bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
            nullptr, G_VARIANT_TYPE("(as)"), G_DBUS_CALL_FLAGS_NONE, -1, cancellable, refused);
        if (!answer)
            return refused.is(G_DBUS_ERROR, G_DBUS_ERROR_ACCESS_DENIED) ? Service::Denied : Service::Absent;
        const char** names = nullptr;
        g_variant_get(answer, "(^a&s)", &names);
        const bool isThere = g_strv_contains(names, serviceName);
        g_free(names);
        g_variant_unref(answer);
        if (isThere)
            return Service::Reachable;
    }
    return Service::Absent;
}

/// The sentence for what a call of the service ended with.
ReminderStoreError errorFor(const GFailure& failure)
{
    if (failure.is(G_IO_ERROR, G_IO_ERROR_CANCELLED))
        return ReminderStoreError(tr("The task lists took too long to answer."));
    if (failure.is(E_CLIENT_ERROR, E_CLIENT_ERROR_REPOSITORY_OFFLINE))
        return ReminderStoreError(tr("The list is offline. Try again when its account is connected."));
    if (failure.is(E_CLIENT_ERROR, E_CLIENT_ERROR_PERMISSION_DENIED))
        return ReminderStoreError(tr("The list cannot be changed: it is read-only."));
    return ReminderStoreError(
        tr("The task lists could not be reached. Try again, or save the list as a file."));
}

ICalComponent* taskOf(const ReminderStore::Reminder& reminder)
{
    ICalComponent* task = i_cal_component_new(I_CAL_VTODO_COMPONENT);
    i_cal_component_set_summary(task, reminder.title.toUtf8().constData());
    if (!reminder.notes.isEmpty())
        i_cal_component_set_description(task, reminder.notes.toUtf8().constData());
    return task;
}

} // namespace

struct DesktopReminderStore::Session
{
    GMainContextScope context;
    GRef<ESourceRegistry> registry;

    GRef<ESource> source(const QString& uid) const
    {
        return GRef<ESource>(e_source_registry_ref_source(registry.get(), uid.toUtf8().constData()));
    }
};

DesktopReminderStore::DesktopReminderStore(std::chrono::milliseconds timeLimit)
    : m_timeLimit(timeLimit)
{
}

DesktopReminderStore::~DesktopReminderStore() = default;

bool DesktopReminderStore::requestAccess()
{
    // The old one first: contexts are pushed and popped as a stack.
    m_session.reset();
    m_session = std::make_unique<Session>();
    const Deadline deadline(m_timeLimit);
    const Service service = findService(deadline.cancellable());
    if (service == Service::Denied)
        return false;
    if (service == Service::Absent)
        throw ReminderStoreError(
            tr("This desktop has no task lists. You can save the list as a file instead."));
    GFailure failure;
    m_session->registry.reset(e_source_registry_new_sync(deadline.cancellable(), failure));
    if (failure.is(G_DBUS_ERROR, G_DBUS_ERROR_ACCESS_DENIED))
        return false;
    if (!m_session->registry)
        throw errorFor(failure);
    return true;
}

DesktopReminderStore::Session& DesktopReminderStore::session()
{
    if (!m_session || !m_session->registry)
        throw ReminderStoreError(
            tr("The task lists could not be reached. Try again, or save the list as a file."));
    return *m_session;
}

std::vector<ReminderStore::List> DesktopReminderStore::lists()
{
    std::vector<List> found;
    SourceList(e_source_registry_list_enabled(session().registry.get(), E_SOURCE_EXTENSION_TASK_LIST))
        .each([&](ESource* list) {
            found.push_back({QString::fromUtf8(e_source_get_uid(list)),
                             QString::fromUtf8(e_source_get_display_name(list))});
        });
    return found;
}

std::optional<ReminderStore::Source> DesktopReminderStore::defaultSource()
{
    const GRef<ESource> list(e_source_registry_ref_default_task_list(session().registry.get()));
    const char* account = list ? e_source_get_parent(list.get()) : nullptr;
    const GRef<ESource> parent = session().source(QString::fromUtf8(account));
    return parent ? std::optional(sourceOf(parent.get())) : std::nullopt;
}

std::vector<ReminderStore::Source> DesktopReminderStore::sources()
{
    std::vector<Source> found;
    const auto add = [&](ESource* account) { found.push_back(sourceOf(account)); };
    SourceList(e_source_registry_list_enabled(session().registry.get(), E_SOURCE_EXTENSION_COLLECTION))
        .each(add);
    if (const GRef<ESource> local = session().source(QString::fromLatin1(localAccount)))
        add(local.get());
    return found;
}

ReminderStore::List DesktopReminderStore::createList(const QString& title, const Source& source)
{
    const Deadline deadline(m_timeLimit);
    GFailure failure;
    const GRef<ESource> list(e_source_new(nullptr, nullptr, failure));
    if (!list)
        throw errorFor(failure);
    e_source_set_display_name(list.get(), title.toUtf8().constData());
    e_source_set_parent(list.get(), source.id.toUtf8().constData());
    auto* backend = E_SOURCE_BACKEND(e_source_get_extension(list.get(), E_SOURCE_EXTENSION_TASK_LIST));
    gboolean isMade = FALSE;
    if (source.kind == SourceKind::Local) {
        e_source_backend_set_backend_name(backend, "local");
        isMade = e_source_registry_commit_source_sync(session().registry.get(), list.get(),
                                                      deadline.cancellable(), failure);
    } else if (const GRef<ESource> account = session().source(source.id)) {
        isMade = e_source_remote_create_sync(account.get(), list.get(), deadline.cancellable(), failure);
    }
    if (!isMade)
        throw errorFor(failure);
    return {QString::fromUtf8(e_source_get_uid(list.get())), title};
}

void DesktopReminderStore::add(const List& list, const std::vector<Reminder>& reminders)
{
    if (reminders.empty())
        return;
    const Deadline deadline(m_timeLimit);
    GFailure failure;
    const GRef<ESource> source = session().source(list.id);
    // The wait argument must be "for ever": any other makes the call take that long, or not return. The
    // deadline is what bounds it.
    const GRef<EClient> client(source
                                   ? e_cal_client_connect_sync(source.get(), E_CAL_CLIENT_SOURCE_TYPE_TASKS,
                                                               guint32(-1), deadline.cancellable(), failure)
                                   : nullptr);
    if (!client)
        throw errorFor(failure);
    if (e_client_is_readonly(client.get()))
        throw ReminderStoreError(tr("The list cannot be changed: it is read-only."));

    GSList* tasks = nullptr;
    for (auto reminder = reminders.rbegin(); reminder != reminders.rend(); ++reminder)
        tasks = g_slist_prepend(tasks, taskOf(*reminder));
    GSList* uids = nullptr;
    const bool areAdded = e_cal_client_create_objects_sync(
        E_CAL_CLIENT(client.get()), tasks, E_CAL_OPERATION_FLAG_NONE, &uids, deadline.cancellable(), failure);
    const guint count = g_slist_length(uids);
    g_slist_free_full(tasks, g_object_unref);
    g_slist_free_full(uids, g_free);
    if (!areAdded && count > 0)
        throw ReminderStoreError(tr("Only %1 of %2 items were added: the task lists stopped answering.")
                                     .arg(count)
                                     .arg(reminders.size()));
    if (!areAdded)
        throw errorFor(failure);
}

} // namespace ovrin
