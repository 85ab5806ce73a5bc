#include "helpers/notifier/Notifier.h"

#include "helpers/notifier/Protocol.h"

#include <sys/timerfd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace ovrin::notifier {

namespace {

/// How long it stays with nothing to do: a client may be about to speak, or about to read the last answer.
constexpr Elapsed linger = 1'000'000'000;

/// Empty where the system does not tell.
std::string bootId()
{
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::string id;
    std::getline(file, id);
    return id;
}

std::string sessionBusAddress()
{
    const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    return address ? address : std::string();
}

} // namespace

Notifier::Notifier(const std::string& folder)
    : m_socketPath(folder + '/' + std::string(socketName))
    , m_book(folder + '/' + std::string(journalName), bootId())
    , m_clients(m_socketPath)
    , m_announcer({.over = [this](const std::string& id) { onOver(id); },
                   .chosen =
                       [this](const std::string& id, const std::string& action) {
                           m_clients.sendToAll(line({"chosen", id, action}));
                       }})
    , m_alarm(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK))
{
    m_announcer.setBusAddress(sessionBusAddress());
}

void Notifier::run()
{
    m_leaveAt = elapsedNow() + linger;
    while (true) {
        const Elapsed now = elapsedNow();
        for (Timer& timer : m_book.takeDue(now))
            m_announcer.announce(std::move(timer), now);
        m_announcer.proceed(now);
        if (hasNothingLeft() && now >= m_leaveAt)
            break;
        setAlarm();
        wait();
        m_clients.process([this](std::string_view received) { onLine(received); });
        if (m_clients.isEmpty())
            m_announcer.withholdActions();
        if (Bus* const bus = m_announcer.bus())
            bus->process();
    }
    ::unlink(m_socketPath.c_str());
    m_book.discard();
}

bool Notifier::hasNothingLeft() const
{
    return m_book.isEmpty() && m_announcer.isIdle();
}

void Notifier::onLine(std::string_view received)
{
    m_leaveAt = elapsedNow() + linger;
    const auto parts = fields(received);
    if (parts[0] == "hello" && parts.size() == 4) {
        m_announcer.setBusAddress(std::string(parts[1]));
        m_announcer.offerActions({std::string(parts[2]), std::string(parts[3])});
    } else if (parts[0] == "at" && m_book.add(parts)) {
        const bool isOver = m_book.isOver(parts[1]);
        m_clients.sendToAll(line({isOver ? "over" : "taken", parts[1]}));
    } else if (parts[0] == "cancel" && parts.size() == 2) {
        const std::string id(parts[1]);
        m_book.finish(id);
        m_announcer.withdraw(id);
        m_clients.sendToAll(line({"over", id}));
    }
}

void Notifier::onOver(const std::string& id)
{
    m_leaveAt = elapsedNow() + linger;
    m_book.finish(id);
    m_clients.sendToAll(line({"over", id}));
}

void Notifier::wait()
{
    std::vector<pollfd> polled;
    polled.push_back({m_alarm.get(), POLLIN, 0});
    if (const Bus* const bus = m_announcer.bus())
        polled.push_back({bus->descriptor(), bus->events(), 0});
    m_clients.addTo(polled);
    ::poll(polled.data(), polled.size(), -1);
}

void Notifier::setAlarm()
{
    std::optional<Elapsed> next = hasNothingLeft() ? std::optional(m_leaveAt) : m_book.nextEnd();
    if (const auto retry = m_announcer.nextTry(); retry && (!next || *retry < *next))
        next = retry;
    itimerspec when = {};
    if (next) {
        const Elapsed moment = std::max<Elapsed>(1, *next);
        when.it_value = {moment / 1'000'000'000, moment % 1'000'000'000};
    }
    // Setting it also takes back that it has gone off.
    ::timerfd_settime(m_alarm.get(), TFD_TIMER_ABSTIME, &when, nullptr);
}

} // namespace ovrin::notifier
