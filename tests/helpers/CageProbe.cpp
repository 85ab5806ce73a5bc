#include "helpers/document-reader/Cage.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

// Tries what a process that has been taken over would try, and prints the errno of each attempt, 0 for
// success. Arguments: "caged" or "free", and a folder with a file "secret" in it.

#ifdef OVRIN_SANITIZED
extern "C" const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "detect_leaks=0";
}
#endif

namespace {

std::filesystem::path folder;

long opened(const std::filesystem::path& path, int flags)
{
    const auto descriptor = open(path.c_str(), flags, 0600);
    if (descriptor >= 0) {
        close(descriptor);
    }
    return descriptor;
}

/// A child ends at once; the parent knows that there was one.
long child(long pid)
{
    if (pid == 0) {
        _exit(0);
    }
    if (pid > 0) {
        waitpid(static_cast<pid_t>(pid), nullptr, 0);
    }
    return pid;
}

long thread()
{
    std::thread([] {}).join();
    return 0;
}

long raisedLimit()
{
    // Lowered first, so that raising it again is what is tried.
    rlimit limit{32, 32};
    setrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_max = 64;
    return setrlimit(RLIMIT_NOFILE, &limit);
}

long mapped(std::size_t bytes)
{
    // Not to be touched, so that only a limit of the process refuses it, and not the machine's size.
    return mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED ? -1 : 0;
}

struct Attempt
{
    const char* name;
    std::function<long()> act;
};

const std::array attempts{
    Attempt{"read a library", [] { return opened("/etc/ld.so.cache", O_RDONLY); }},
    Attempt{"start a thread", thread},
    Attempt{"take 100 MB", [] { return mapped(100'000'000); }},
    Attempt{"take 8 GB", [] { return mapped(8'000'000'000); }},
    Attempt{"read a file", [] { return opened(folder / "secret", O_RDONLY); }},
    Attempt{"read the password file", [] { return opened("/etc/passwd", O_RDONLY); }},
    Attempt{"read its environment", [] { return opened("/proc/self/environ", O_RDONLY); }},
    Attempt{"list a folder", [] { return opened(folder, O_RDONLY | O_DIRECTORY); }},
    Attempt{"write a file", [] { return opened(folder / "secret", O_WRONLY); }},
    Attempt{"create a file", [] { return opened(folder / "new", O_WRONLY | O_CREAT); }},
    Attempt{"create a nameless file", [] { return opened(folder, O_RDWR | O_TMPFILE); }},
    Attempt{"rename a file", [] { return rename((folder / "secret").c_str(), (folder / "secret").c_str()); }},
    Attempt{"make a folder", [] { return mkdir((folder / "made").c_str(), 0700); }},
    Attempt{"change a file's mode", [] { return chmod((folder / "secret").c_str(), 0600); }},
    Attempt{"open an internet socket", [] { return socket(AF_INET, SOCK_STREAM, 0); }},
    Attempt{"open a datagram socket", [] { return socket(AF_INET6, SOCK_DGRAM, 0); }},
    Attempt{"open a local socket", [] { return socket(AF_UNIX, SOCK_STREAM, 0); }},
    Attempt{"make a socket pair",
            [] {
                std::array<int, 2> pair{};
                return socketpair(AF_UNIX, SOCK_STREAM, 0, pair.data());
            }},
    Attempt{"fork", [] { return child(syscall(SYS_fork)); }},
    Attempt{"clone a process", [] { return child(syscall(SYS_clone, SIGCHLD, 0, 0, 0, 0)); }},
    Attempt{"signal its parent", [] { return kill(getppid(), 0); }},
    Attempt{"raise a limit", raisedLimit},
    Attempt{"make a file in memory", [] { return memfd_create("x", 0); }},
    // Last, for where nothing forbids it there is nobody left to go on.
    Attempt{"run a program",
            [] {
                std::printf("run a program=0\n");
                std::fflush(stdout);
                std::array<char*, 1> none{};
                execve("/bin/true", none.data(), none.data());
                return -1;
            }},
};

} // namespace

int main(int, char** arguments)
{
    folder = arguments[2];
    if (std::strcmp(arguments[1], "caged") == 0) {
        for (const auto& layer : ovrin::sandbox::enter(ovrin::documentreader::cage("/usr/lib"))) {
            std::printf("lacks=%s\n", layer.c_str());
        }
    }
    for (const auto& [name, act] : attempts) {
        errno = 0;
        const auto outcome = act() < 0 ? errno : 0;
        std::printf("%s=%d\n", name, outcome);
    }
}
