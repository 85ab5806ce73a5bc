#include "helpers/sandbox/Sandbox.h"

#include <array>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace ovrin::sandbox {

namespace {

/// Root without capabilities is still bound by limits and by files' permissions.
std::string dropPrivileges()
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    const std::array<__user_cap_data_struct, 2> none{};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || syscall(SYS_capset, &header, none.data()) != 0) {
        return std::strerror(errno);
    }
    return {};
}

} // namespace

std::vector<std::string> enter(const Confinement& confinement)
{
    std::vector<std::string> missing;
    const auto layer = [&](const char* name, const std::string& reason) {
        if (!reason.empty()) {
            missing.push_back(std::string(name) + " (" + reason + ")");
        }
    };
    layer("resource limits", restrictResources(confinement.memoryBytes, confinement.time));
    layer("dropped privileges", dropPrivileges());
    layer("Landlock", restrictFiles(confinement.readable));
    // Last, for it forbids what the others need.
    layer("seccomp", restrictSystemCalls());
    return missing;
}

} // namespace ovrin::sandbox
