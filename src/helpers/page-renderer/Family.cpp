#include "helpers/page-renderer/Family.h"

#include "helpers/page-renderer/Outcome.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace ovrin {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Our children, adopted orphans included, as /proc knows them.
std::vector<pid_t> children()
{
    std::vector<pid_t> found;
    std::error_code error;
    for (fs::directory_iterator entry("/proc", error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (name.find_first_not_of("0123456789") != std::string::npos)
            continue;
        std::ifstream file(entry->path() / "stat");
        std::string stat;
        std::getline(file, stat);
        // "pid (any name, parentheses too) state parent ..."
        const std::size_t nameEnd = stat.rfind(") ");
        if (nameEnd != std::string::npos && std::atoi(stat.c_str() + nameEnd + 4) == getpid())
            found.push_back(std::atoi(name.c_str()));
    }
    return found;
}

/// Kills generation after generation: what a killed child leaves behind becomes our own child, because we are
/// its subreaper. Only children are signalled, whose numbers cannot be given away before we reap them.
void endFamily()
{
    for (;;) {
        for (const pid_t child : children())
            kill(child, SIGKILL);
        if (waitpid(-1, nullptr, 0) < 0 && errno == ECHILD)
            return;
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
    }
}

/// The worker's exit status once it has ended. Reaps adopted children on the way.
std::optional<int> reap(pid_t worker)
{
    int status = 0;
    for (pid_t ended = 0; (ended = waitpid(-1, &status, WNOHANG)) > 0;) {
        if (ended == worker)
            return WIFEXITED(status) ? WEXITSTATUS(status) : static_cast<int>(RenderOutcome::Failed);
    }
    return std::nullopt;
}

bool atEnd(const pollfd& lifeline)
{
    if (lifeline.revents == 0)
        return false;
    char ignored[256];
    const ssize_t count = read(lifeline.fd, ignored, sizeof ignored);
    return count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN);
}

int wait(pid_t worker, int signals, Clock::time_point limit)
{
    pollfd sources[] = {{STDIN_FILENO, POLLIN, 0}, {signals, POLLIN, 0}};
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(limit - Clock::now()).count();
        if (left <= 0)
            return static_cast<int>(RenderOutcome::TimedOut);
        if (poll(sources, 2, static_cast<int>(left)) < 0) {
            if (errno == EINTR)
                continue;
            return static_cast<int>(RenderOutcome::Failed);
        }
        // Signals are taken in before looking who has ended: one that comes in between wakes the next poll.
        signalfd_siginfo signal{};
        const bool asked = sources[1].revents != 0 && read(signals, &signal, sizeof signal) > 0 &&
                           signal.ssi_signo != SIGCHLD;
        if (const std::optional<int> status = reap(worker))
            return *status;
        if (asked || atEnd(sources[0]))
            return static_cast<int>(RenderOutcome::Stopped);
    }
}

[[noreturn]] void becomeWorker(pid_t supervisor, const sigset_t& signals, const fs::path& folder,
                               const std::function<int(const fs::path&)>& work)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != supervisor)
        _exit(static_cast<int>(RenderOutcome::Stopped));
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing < 0 || dup2(nothing, STDIN_FILENO) < 0)
        _exit(static_cast<int>(RenderOutcome::Failed));
    // No destructors: threads may still be at work, and the supervisor cleans up.
    _exit(work(folder));
}

} // namespace

int runWithFamily(Clock::time_point limit, const std::function<int(const fs::path&)>& work)
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGCHLD})
        sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    const int signalSource = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (signalSource < 0 || prctl(PR_SET_CHILD_SUBREAPER, 1) != 0)
        return static_cast<int>(RenderOutcome::Failed);

    std::error_code error;
    std::string folder = (fs::temp_directory_path(error) / "ovrin-page-XXXXXX").string();
    if (error || mkdtemp(folder.data()) == nullptr)
        return static_cast<int>(RenderOutcome::Failed);

    const pid_t supervisor = getpid();
    const pid_t worker = fork();
    if (worker == 0)
        becomeWorker(supervisor, signals, folder, work);
    const int status =
        worker < 0 ? static_cast<int>(RenderOutcome::Failed) : wait(worker, signalSource, limit);
    endFamily();
    fs::remove_all(folder, error);
    return status;
}

} // namespace ovrin
