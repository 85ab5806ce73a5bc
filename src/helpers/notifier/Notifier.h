#pragma once

#include "helpers/notifier/Announcer.h"
#include "helpers/notifier/Clients.h"
#include "helpers/notifier/TimerBook.h"

#include <string>
#include <string_view>

namespace ovrin::notifier {

/// Waits for the ends of timers and announces them. Everything it does is an answer to a client, the bus or
/// the one alarm that is set for what comes next; in between it sleeps.
class Notifier
{
public:
    /// Keeps its socket and its journal in `folder`.
    explicit Notifier(const std::string& folder);
    bool isListening() const { return m_clients.isListening(); }

    /// Returns when nothing is left to do.
    void run();

private:
    void onLine(std::string_view line);
    void onOver(const std::string& id);
    void wait();
    void setAlarm();
    bool hasNothingLeft() const;

    std::string m_socketPath;
    TimerBook m_book;
    Clients m_clients;
    Announcer m_announcer;
    File m_alarm;
    /// When it leaves, if nothing is left by then.
    Elapsed m_leaveAt = 0;
};

} // namespace ovrin::notifier
