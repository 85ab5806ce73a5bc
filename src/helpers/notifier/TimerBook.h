#pragma once

#include "helpers/notifier/File.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace ovrin::notifier {

/// Nanoseconds of CLOCK_BOOTTIME: time since the machine started, spent in suspension included.
using Elapsed = std::int64_t;

Elapsed elapsedNow();

struct Timer
{
    std::string id;
    Elapsed end = 0;
    /// Stays on the screen until it is seen.
    bool isUrgent = true;
    bool hasSound = true;
    std::string title;
    std::string body;
};

/// The timers that are still to be announced, and their journal: a file of the protocol's own lines, appended
/// to before anything is confirmed, so that a killed notifier's successor knows what is left. Reading stops
/// short of a line that was cut off; a journal of another boot, whose clock means nothing now, counts as
/// empty.
class TimerBook
{
public:
    /// Reads what the journal at `path` holds. Without a file to write to, the book is kept in memory alone.
    TimerBook(std::string path, std::string_view bootId);

    /// Takes the fields of an "at" line. False when they make no timer or there are too many of them; true,
    /// and nothing changes, for one that is over.
    bool add(const std::vector<std::string_view>& fields);
    /// The timer was announced or cancelled: it never counts again, not even when it is added once more.
    void finish(std::string_view id);
    bool isOver(std::string_view id) const { return m_over.contains(std::string(id)); }

    bool isEmpty() const { return m_pending.empty(); }
    /// The end that comes first.
    std::optional<Elapsed> nextEnd() const;
    /// Those that end by `now`, first ends first; each is given once in the life of this book.
    std::vector<Timer> takeDue(Elapsed now);

    /// Removes the journal.
    void discard();

private:
    void read(std::string_view bootId);
    bool apply(const std::vector<std::string_view>& fields);
    void write(const std::string& line);

    /// Beyond this something is amiss with whoever asks.
    static constexpr std::size_t maximumPending = 20'000;

    std::string m_path;
    File m_file;
    std::map<std::string, Timer, std::less<>> m_pending;
    /// Those of `m_pending` that have not been given out, by their ends.
    std::multimap<Elapsed, std::string> m_waiting;
    std::unordered_set<std::string> m_over;
};

} // namespace ovrin::notifier
