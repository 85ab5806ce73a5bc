// The program that waits for timers in the application's place: ovrin-notifier FOLDER.
//
// It is ready once the command returns: by then it listens in FOLDER, or another one does. What waits goes on
// in the background, whatever becomes of its parent, and ends by itself.

#include "helpers/notifier/Notifier.h"
#include "helpers/notifier/Protocol.h"

#include <fcntl.h>
#include <sys/file.h>

#include <csignal>
#include <cstdio>
#include <string>

using namespace ovrin::notifier;

namespace {

void detach()
{
    ::setsid();
    if (::chdir("/") != 0)
        std::perror("ovrin-notifier");
    if (const int null = ::open("/dev/null", O_RDWR); null >= 0) {
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::dup2(null, standard);
        if (null > STDERR_FILENO)
            ::close(null);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || argv[1][0] != '/') {
        std::fputs("Usage: ovrin-notifier FOLDER (an absolute path)\n", stderr);
        return 2;
    }
    // What its parent left open is none of its business, and would stay open for hours.
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);

    const std::string folder = argv[1];
    const File lock(
        ::open((folder + '/' + std::string(lockName)).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock) {
        std::perror("ovrin-notifier");
        return 1;
    }
    // Held by whoever waits, for as long as it does.
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        return 0;

    Notifier notifier(folder);
    if (!notifier.isListening()) {
        std::perror("ovrin-notifier");
        return 1;
    }
    const pid_t child = ::fork();
    if (child != 0)
        return child > 0 ? 0 : 1;
    detach();
    notifier.run();
    return 0;
}
