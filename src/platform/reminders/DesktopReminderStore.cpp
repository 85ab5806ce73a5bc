#include "platform/reminders/DesktopReminderStore.h"

#include "platform/reminders/GHandles.h"
#include "platform/reminders/TaskService.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QUuid>

#include <libecal/libecal.h>

namespace ovrin {

namespace {

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

/// Throws what a call of the service ended with, as a sentence.
[[noreturn]] void fail(const GFailure& failure)
{
    if (failure.is(G_DBUS_ERROR, G_DBUS_ERROR_ACCESS_DENIED))
        throw ReminderAccessDenied(tr("The task lists are out of reach of this program."));
    if (failure.is(G_IO_ERROR, G_IO_ERROR_CANCELLED))
        throw ReminderStoreError(tr("The task lists took too long to answer."));
    if (failure.is(E_CLIENT_ERROR, E_CLIENT_ERROR_REPOSITORY_OFFLINE) ||
        failure.is(E_CLIENT_ERROR, E_CLIENT_ERROR_OFFLINE_UNAVAILABLE))
        throw ReminderStoreError(tr("The list is offline. Try again when its account is connected."));
    if (failure.is(E_CLIENT_ERROR, E_CLIENT_ERROR_PERMISSION_DENIED))
        throw ReminderStoreError(tr("The list cannot be changed: it is read-only."));
    throw ReminderStoreError(
        tr("The task lists could not be reached. Try again, or save the list as a file."));
}

GRef<EClient> connect(ESource* list, const Deadline& deadline, GFailure& failure)
{
    // The wait argument must be "for ever": any other makes the call take that long, or not return. The
    // deadline is what bounds it.
    return GRef<EClient>(list ? e_cal_client_connect_sync(list, E_CAL_CLIENT_SOURCE_TYPE_TASKS, guint32(-1),
                                                          deadline.cancellable(), failure)
                              : nullptr);
}

/// The tasks to be made. Each has an id of our own, by which it can be asked for later.
class Tasks
{
public:
    explicit Tasks(const std::vector<ReminderStore::Reminder>& reminders)
    {
        for (auto reminder = reminders.rbegin(); reminder != reminders.rend(); ++reminder) {
            ICalComponent* task = i_cal_component_new(I_CAL_VTODO_COMPONENT);
            i_cal_component_set_uid(task, QUuid::createUuid().toByteArray(QUuid::WithoutBraces).constData());
            i_cal_component_set_summary(task, reminder->title.toUtf8().constData());
            if (!reminder->notes.isEmpty())
                i_cal_component_set_description(task, reminder->notes.toUtf8().constData());
            m_list = g_slist_prepend(m_list, task);
        }
    }
    Tasks(const Tasks&) = delete;
    Tasks& operator=(const Tasks&) = delete;
    ~Tasks() { g_slist_free_full(m_list, g_object_unref); }

    GSList* list() const { return m_list; }

    /// How many of them `client` has; nothing when it cannot tell.
    std::optional<int> countIn(EClient* client, const Deadline& deadline) const
    {
        int count = 0;
        for (GSList* node = m_list; node; node = node->next) {
            GFailure failure;
            ICalComponent* found = nullptr;
            const char* uid = i_cal_component_get_uid(I_CAL_COMPONENT(node->data));
            if (e_cal_client_get_object_sync(E_CAL_CLIENT(client), uid, nullptr, &found,
                                             deadline.cancellable(), failure)) {
                g_object_unref(found);
                ++count;
            } else if (!failure.is(E_CAL_CLIENT_ERROR, E_CAL_CLIENT_ERROR_OBJECT_NOT_FOUND)) {
                return std::nullopt;
            }
        }
        return count;
    }

private:
    GSList* m_list = nullptr;
};

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

DesktopReminderStore::DesktopReminderStore(std::chrono::milliseconds timeLimit, QString sandboxMark)
    : m_timeLimit(timeLimit)
    , m_sandboxMark(std::move(sandboxMark))
{
}

DesktopReminderStore::~DesktopReminderStore() = default;

bool DesktopReminderStore::requestAccess()
{
    const Deadline deadline(m_timeLimit);
    const TaskService service = findTaskService(deadline.cancellable());
    // A sandbox hides what it does not let through.
    if (service == TaskService::Denied || (service == TaskService::Absent && QFile::exists(m_sandboxMark)))
        return false;
    if (service == TaskService::Absent)
        throw ReminderStoreError(
            tr("This desktop has no task lists. You can save the list as a file instead."));
    if (m_session) {
        // What other programs did to the lists meanwhile waits in the context to be heard.
        while (g_main_context_iteration(m_session->context.context, FALSE)) {
        }
        return true;
    }
    auto session = std::make_unique<Session>();
    GFailure failure;
    session->registry.reset(e_source_registry_new_sync(deadline.cancellable(), failure));
    if (failure.is(G_DBUS_ERROR, G_DBUS_ERROR_ACCESS_DENIED))
        return false;
    if (!session->registry)
        fail(failure);
    m_session = std::move(session);
    return true;
}

DesktopReminderStore::Session& DesktopReminderStore::session()
{
    if (!m_session)
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
        fail(failure);
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
        fail(failure);
    return {QString::fromUtf8(e_source_get_uid(list.get())), title};
}

void DesktopReminderStore::add(const List& list, const std::vector<Reminder>& reminders)
{
    if (reminders.empty())
        return;
    const Deadline deadline(m_timeLimit);
    GFailure failure;
    const GRef<ESource> source = session().source(list.id);
    const GRef<EClient> client = connect(source.get(), deadline, failure);
    if (!client)
        fail(failure);
    if (e_client_is_readonly(client.get()))
        throw ReminderStoreError(tr("The list cannot be changed: it is read-only."));

    const Tasks tasks(reminders);
    GSList* uids = nullptr;
    const bool areAdded =
        e_cal_client_create_objects_sync(E_CAL_CLIENT(client.get()), tasks.list(), E_CAL_OPERATION_FLAG_NONE,
                                         &uids, deadline.cancellable(), failure);
    g_slist_free_full(uids, g_free);
    if (areAdded)
        return;

    // The answer says nothing of the items before the one that failed, and one that is late or lost nothing
    // at all: the list itself is asked, by a new connection, since the service may have died and been started
    // anew.
    const Deadline anotherDeadline(m_timeLimit);
    GFailure ignored;
    const GRef<EClient> again = connect(source.get(), anotherDeadline, ignored);
    const auto count = again ? tasks.countIn(again.get(), anotherDeadline) : std::nullopt;
    // What was late may still be done after we have looked.
    if (!count || (*count == 0 && failure.is(G_IO_ERROR, G_IO_ERROR_CANCELLED)))
        throw ReminderStoreError(tr("The task lists stopped answering while items were being added. Look at "
                                    "the list before you add them again."));
    if (*count == 0)
        fail(failure);
    if (*count < int(reminders.size()))
        throw ReminderStoreError(
            tr("Only %1 of %2 items were added. Look at the list before you add them again.")
                .arg(*count)
                .arg(reminders.size()));
}

} // namespace ovrin
