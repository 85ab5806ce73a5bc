#include "helpers/sandbox/Sandbox.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace ovrin::sandbox {

namespace {

bool limit(__rlimit_resource resource, rlim_t value)
{
    const rlimit both{value, value};
    return setrlimit(resource, &both) == 0;
}

bool limitMemory([[maybe_unused]] __rlimit_resource resource, [[maybe_unused]] rlim_t bytes)
{
#ifdef OVRIN_SANITIZED
    return true;
#else
    return limit(resource, bytes);
#endif
}

} // namespace

std::string restrictResources(std::size_t memoryBytes, std::chrono::seconds time)
{
    const auto seconds = static_cast<rlim_t>(time.count());
    // A log that is a file must not end the process at its first line: writing to it fails instead.
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR;
    const auto limited = ignored && limitMemory(RLIMIT_AS, memoryBytes) && limit(RLIMIT_CPU, seconds) &&
                         limit(RLIMIT_CORE, 0) && limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_NOFILE, 64) &&
                         limit(RLIMIT_MSGQUEUE, 0) && limit(RLIMIT_MEMLOCK, 0);
    if (!limited) {
        return std::strerror(errno);
    }
    alarm(static_cast<unsigned>(seconds));
    return {};
}

std::string restrictWrittenMemory(std::size_t bytes)
{
    return limitMemory(RLIMIT_DATA, bytes) ? std::string() : std::strerror(errno);
}

} // namespace ovrin::sandbox
