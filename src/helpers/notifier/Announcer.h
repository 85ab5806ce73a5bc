#pragma once

#include "helpers/notifier/Bus.h"
#include "helpers/notifier/Note.h"
#include "helpers/notifier/TimerBook.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace ovrin::notifier {

/// Shows notes through the session's notification service, each once. It is connected to the bus only while
/// something is to be shown or a note on the screen offers actions: an idle notifier hears of nothing.
/// While the service cannot be reached it tries again, at once when the service appears and otherwise at
/// growing intervals; after an hour in vain a note is given up.
class Announcer
{
public:
    struct Events
    {
        /// Shown or given up.
        std::function<void(const std::string& id)> over;
        /// `action` is "stop" or "show".
        std::function<void(const std::string& id, const std::string& action)> chosen;
    };

    explicit Announcer(Events events);

    /// Where the next connection is made; an empty address changes nothing.
    void setBusAddress(const std::string& address);
    /// Notes offer actions from now on.
    void offerActions(ActionLabels labels);
    /// Nobody is there any more whom a choice would reach.
    void withholdActions();

    void announce(Timer timer, Elapsed now);
    /// The note is not shown, or goes from the screen.
    void withdraw(const std::string& id);

    /// Does what can be done now. Call it after any other call, and at `nextTry`.
    void proceed(Elapsed now);
    std::optional<Elapsed> nextTry() const { return m_nextTry; }
    /// Nothing left to show or to say, and no note whose actions somebody waits for.
    bool isIdle() const { return m_announcements.empty() && m_notes.empty() && !m_bus; }
    /// To be polled and processed; null while not connected.
    Bus* bus() const { return m_bus.get(); }

private:
    struct Announcement
    {
        Timer timer;
        Elapsed since = 0;
        bool isSent = false;
        bool isWithdrawn = false;
    };
    using Announcements = std::list<Announcement>;

    bool connect();
    void dropLostBus();
    void askCapabilities();
    void send(Announcements::iterator announcement);
    void onNoteReply(Announcements::iterator announcement, DBusMessage* reply);
    void onSignal(DBusMessage* message);
    void onServiceChanged(DBusMessage* message);
    void giveUpLate(Elapsed now);
    Announcements::iterator find(const std::string& id);

    Events m_events;
    std::string m_address;
    std::optional<ActionLabels> m_labels;

    /// In the order in which the timers ended. A list, so that a pending reply can hold a place in it.
    Announcements m_announcements;
    int m_unanswered = 0;
    /// The notes on the screen that offer actions, by the service's number.
    std::map<std::uint32_t, std::string> m_notes;

    std::optional<ServiceCapabilities> m_capabilities;
    bool m_isAsking = false;
    bool m_isLost = false;
    bool m_hasFailed = false;
    std::optional<Elapsed> m_nextTry;
    Elapsed m_pause = 0;

    /// Last, since closing it answers the pending calls.
    std::unique_ptr<Bus> m_bus;
};

} // namespace ovrin::notifier
