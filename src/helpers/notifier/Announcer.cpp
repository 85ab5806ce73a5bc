#include "helpers/notifier/Announcer.h"

#include <poll.h>

#include <algorithm>
#include <string_view>

namespace ovrin::notifier {

namespace {

constexpr Elapsed second = 1'000'000'000;
constexpr Elapsed longestPause = 60 * second;
constexpr Elapsed longestTrying = 3600 * second;
/// So that a thousand timers at once do not run into a service's limit of what it takes at a time.
constexpr int mostUnanswered = 100;

bool isError(DBusMessage* message, const char* name = nullptr)
{
    return dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_ERROR &&
           (!name || dbus_message_is_error(message, name));
}

} // namespace

Announcer::Announcer(Events events)
    : m_events(std::move(events))
{
}

void Announcer::setBusAddress(const std::string& address)
{
    if (!address.empty())
        m_address = address;
}

void Announcer::offerActions(ActionLabels labels)
{
    m_labels = std::move(labels);
}

void Announcer::withholdActions()
{
    m_labels.reset();
    m_notes.clear();
}

void Announcer::announce(Timer timer, Elapsed now)
{
    m_announcements.push_back({.timer = std::move(timer), .since = now});
}

void Announcer::withdraw(const std::string& id)
{
    if (const auto announcement = find(id); announcement != m_announcements.end()) {
        announcement->isWithdrawn = true;
        if (!announcement->isSent)
            m_announcements.erase(announcement);
    }
    const auto note =
        std::find_if(m_notes.begin(), m_notes.end(), [&](const auto& other) { return other.second == id; });
    if (note != m_notes.end()) {
        m_bus->send(closingOf(note->first));
        m_notes.erase(note);
    }
}

void Announcer::proceed(Elapsed now)
{
    dropLostBus();
    giveUpLate(now);
    if (m_announcements.empty()) {
        // Asked anew for what comes next: word of another service may still be on its way when it is sent,
        // and a service's own markup must never be taken for another's.
        m_capabilities.reset();
        m_nextTry.reset();
        m_pause = 0;
        m_hasFailed = false;
        if (m_notes.empty() && m_bus && !(m_bus->events() & POLLOUT))
            m_bus.reset();
        return;
    }
    if (!m_hasFailed && m_nextTry && now < *m_nextTry)
        return;
    m_nextTry.reset();
    if (m_hasFailed || (!m_bus && !connect())) {
        m_hasFailed = false;
        m_capabilities.reset();
        m_pause = std::clamp(2 * m_pause, second, longestPause);
        m_nextTry = now + m_pause;
        return;
    }
    if (!m_capabilities) {
        askCapabilities();
        return;
    }
    for (auto next = m_announcements.begin(); next != m_announcements.end(); ++next) {
        if (m_unanswered >= mostUnanswered)
            break;
        if (!next->isSent)
            send(next);
    }
}

bool Announcer::connect()
{
    m_bus = Bus::open(m_address, [this](DBusMessage* message) { onSignal(message); });
    if (!m_bus)
        return false;
    const std::string from = std::string("type='signal',sender='") + notificationService + "',interface='" +
                             notificationService + "'";
    m_bus->watch(from);
    m_bus->watch(std::string("type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='") +
                 notificationService + "'");
    return true;
}

void Announcer::dropLostBus()
{
    if (!m_isLost)
        return;
    m_bus.reset();
    m_isLost = m_isAsking = false;
    m_capabilities.reset();
    m_notes.clear();
    // What had no answer by now gets none.
    m_unanswered = 0;
    m_announcements.remove_if([](const Announcement& announcement) { return announcement.isWithdrawn; });
    for (Announcement& announcement : m_announcements)
        announcement.isSent = false;
}

void Announcer::askCapabilities()
{
    if (std::exchange(m_isAsking, true))
        return;
    m_bus->call(capabilitiesQuestion(), [this](DBusMessage* reply) {
        m_isAsking = false;
        // A service that does not know the question has none of them.
        if (isError(reply) && !isError(reply, DBUS_ERROR_UNKNOWN_METHOD))
            m_hasFailed = true;
        else
            m_capabilities = capabilitiesOf(reply);
    });
}

void Announcer::send(Announcements::iterator announcement)
{
    announcement->isSent = true;
    ++m_unanswered;
    m_bus->call(noteOf(announcement->timer, *m_capabilities, m_labels ? &*m_labels : nullptr),
                [this, announcement](DBusMessage* reply) { onNoteReply(announcement, reply); });
}

void Announcer::onNoteReply(Announcements::iterator announcement, DBusMessage* reply)
{
    --m_unanswered;
    announcement->isSent = false;
    if (isError(reply)) {
        m_hasFailed = true;
        if (announcement->isWithdrawn)
            m_announcements.erase(announcement);
        return;
    }
    m_pause = 0;
    const std::uint32_t note = noteNumberOf(reply);
    const std::string id = announcement->timer.id;
    const bool isWithdrawn = announcement->isWithdrawn;
    m_announcements.erase(announcement);
    if (isWithdrawn) {
        m_bus->send(closingOf(note));
        return;
    }
    if (m_labels)
        m_notes.emplace(note, id);
    m_events.over(id);
}

void Announcer::onSignal(DBusMessage* message)
{
    if (dbus_message_is_signal(message, DBUS_INTERFACE_LOCAL, "Disconnected")) {
        m_isLost = true;
        m_hasFailed = !m_announcements.empty();
    } else if (dbus_message_is_signal(message, DBUS_INTERFACE_DBUS, "NameOwnerChanged")) {
        onServiceChanged(message);
    } else if (dbus_message_is_signal(message, notificationService, "ActionInvoked")) {
        dbus_uint32_t note = 0;
        const char* action = nullptr;
        if (!dbus_message_get_args(message, nullptr, DBUS_TYPE_UINT32, &note, DBUS_TYPE_STRING, &action,
                                   DBUS_TYPE_INVALID))
            return;
        if (const auto found = m_notes.find(note); found != m_notes.end())
            m_events.chosen(found->second, action);
    } else if (dbus_message_is_signal(message, notificationService, "NotificationClosed")) {
        m_notes.erase(noteNumberOf(message));
    }
}

void Announcer::onServiceChanged(DBusMessage* message)
{
    const char* name = nullptr;
    const char* before = nullptr;
    const char* after = nullptr;
    if (!dbus_message_get_args(message, nullptr, DBUS_TYPE_STRING, &name, DBUS_TYPE_STRING, &before,
                               DBUS_TYPE_STRING, &after, DBUS_TYPE_INVALID) ||
        std::string_view(name) != notificationService)
        return;
    // Its notes are gone with a service, and another one may take other things.
    if (*before) {
        m_notes.clear();
        m_capabilities.reset();
    }
    if (*after) {
        m_hasFailed = false;
        m_nextTry.reset();
        m_pause = 0;
    }
}

void Announcer::giveUpLate(Elapsed now)
{
    for (auto next = m_announcements.begin(); next != m_announcements.end();) {
        const auto announcement = next++;
        if (announcement->isSent || now - announcement->since < longestTrying)
            continue;
        const std::string id = announcement->timer.id;
        m_announcements.erase(announcement);
        m_events.over(id);
    }
}

Announcer::Announcements::iterator Announcer::find(const std::string& id)
{
    return std::find_if(m_announcements.begin(), m_announcements.end(),
                        [&](const Announcement& other) { return other.timer.id == id; });
}

} // namespace ovrin::notifier
