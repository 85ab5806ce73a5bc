#include "helpers/notifier/TimerBook.h"

#include "helpers/notifier/Protocol.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <charconv>
#include <ctime>

namespace ovrin::notifier {

namespace {

std::optional<Elapsed> number(std::string_view text)
{
    Elapsed value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::optional<Timer> timerOf(const std::vector<std::string_view>& fields)
{
    if (fields.size() != 6 || fields[1].empty() || fields[1].size() > 64)
        return std::nullopt;
    const auto end = number(fields[2]);
    if (!end)
        return std::nullopt;
    return Timer{.id = std::string(fields[1]),
                 .end = *end,
                 .isUrgent = fields[3].find('u') != std::string_view::npos,
                 .hasSound = fields[3].find('s') != std::string_view::npos,
                 .title = std::string(fields[4]),
                 .body = std::string(fields[5])};
}

std::string contents(int file)
{
    constexpr off_t largest = 64 << 20;
    struct stat information = {};
    if (::fstat(file, &information) != 0 || information.st_size > largest)
        return {};
    std::string text(static_cast<std::size_t>(information.st_size), '\0');
    const ssize_t length = ::pread(file, text.data(), text.size(), 0);
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

} // namespace

Elapsed elapsedNow()
{
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return now.tv_sec * 1'000'000'000 + now.tv_nsec;
}

TimerBook::TimerBook(std::string path, std::string_view bootId)
    : m_path(std::move(path))
    , m_file(::open(m_path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0600))
{
    if (m_file)
        read(bootId);
}

void TimerBook::read(std::string_view bootId)
{
    const std::string text = contents(m_file.get());
    const std::string heading = line({"boot", bootId});
    if (!text.starts_with(heading)) {
        if (::ftruncate(m_file.get(), 0) == 0)
            write(heading);
        return;
    }
    std::string_view rest(text);
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) {
            // Closes the line that was cut off, so that the next one stands alone.
            write("\n");
            return;
        }
        apply(fields(rest.substr(0, end)));
        rest.remove_prefix(end + 1);
    }
}

bool TimerBook::add(const std::vector<std::string_view>& fields)
{
    if (fields.size() > 1 && isOver(fields[1]))
        return true;
    if (m_pending.size() >= maximumPending || !apply(fields))
        return false;
    write(line({fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]}));
    return true;
}

void TimerBook::finish(std::string_view id)
{
    apply({"over", id});
    write(line({"over", id}));
}

bool TimerBook::apply(const std::vector<std::string_view>& fields)
{
    if (fields[0] == "at") {
        const auto timer = timerOf(fields);
        // A request that is sent again is the same request.
        if (timer && !m_pending.contains(timer->id)) {
            m_waiting.emplace(timer->end, timer->id);
            m_pending.emplace(timer->id, *timer);
        }
        return timer.has_value();
    }
    if (fields[0] == "over" && fields.size() == 2) {
        m_over.emplace(fields[1]);
        if (const auto found = m_pending.find(fields[1]); found != m_pending.end()) {
            const auto [first, last] = m_waiting.equal_range(found->second.end);
            for (auto waiting = first; waiting != last; ++waiting) {
                if (waiting->second == fields[1]) {
                    m_waiting.erase(waiting);
                    break;
                }
            }
            m_pending.erase(found);
        }
        return true;
    }
    return false;
}

std::optional<Elapsed> TimerBook::nextEnd() const
{
    return m_waiting.empty() ? std::nullopt : std::optional(m_waiting.begin()->first);
}

std::vector<Timer> TimerBook::takeDue(Elapsed now)
{
    std::vector<Timer> due;
    while (!m_waiting.empty() && m_waiting.begin()->first <= now) {
        due.push_back(m_pending.at(m_waiting.begin()->second));
        m_waiting.erase(m_waiting.begin());
    }
    return due;
}

void TimerBook::discard()
{
    ::unlink(m_path.c_str());
}

void TimerBook::write(const std::string& text)
{
    // What cannot be written is lost only if the notifier is killed as well; there is nobody to tell.
    if (m_file && ::write(m_file.get(), text.data(), text.size()) < 0)
        m_file = File();
}

} // namespace ovrin::notifier
