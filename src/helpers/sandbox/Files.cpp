#include "helpers/sandbox/Sandbox.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

namespace ovrin::sandbox {

namespace {

// Debian 12's headers are older than its newer kernels: the layout and the numbers below are those of the
// kernel's documentation (Documentation/userspace-api/landlock.rst).
struct RulesetAttributes
{
    std::uint64_t handledFiles = 0;
    std::uint64_t handledNetwork = 0;
    std::uint64_t scoped = 0;
};

constexpr std::uint64_t bits(int count)
{
    return (std::uint64_t{1} << count) - 1;
}

/// Everything that version `abi` of Landlock can forbid.
RulesetAttributes everything(long abi)
{
    RulesetAttributes attributes;
    // 13 rights at first, then moving between folders, truncating, and device control.
    attributes.handledFiles = bits(abi >= 5 ? 16 : abi >= 3 ? 15 : abi == 2 ? 14 : 13);
    // Binding and connecting TCP sockets.
    attributes.handledNetwork = abi >= 4 ? bits(2) : 0;
    // Abstract Unix sockets and signals to processes outside.
    attributes.scoped = abi >= 6 ? bits(2) : 0;
    return attributes;
}

class Descriptor
{
public:
    explicit Descriptor(long value)
        : m_value(static_cast<int>(value))
    {
    }
    ~Descriptor()
    {
        if (m_value >= 0) {
            close(m_value);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int value() const { return m_value; }
    bool isValid() const { return m_value >= 0; }

private:
    int m_value;
};

bool allowReading(const Descriptor& ruleset, const std::filesystem::path& path)
{
    const Descriptor target(open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat status = {};
    if (!target.isValid() || fstat(target.value(), &status) != 0) {
        return errno == ENOENT;
    }
    landlock_path_beneath_attr rule{};
    rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE;
    if (S_ISDIR(status.st_mode)) {
        rule.allowed_access |= LANDLOCK_ACCESS_FS_READ_DIR;
    }
    rule.parent_fd = target.value();
    return syscall(SYS_landlock_add_rule, ruleset.value(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
}

} // namespace

std::string restrictFiles(const std::vector<std::filesystem::path>& readable)
{
    const auto abi = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (abi < 1) {
        return std::strerror(errno);
    }
    const auto attributes = everything(abi);
    const Descriptor ruleset(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0));
    if (!ruleset.isValid()) {
        return std::strerror(errno);
    }
    for (const auto& path : readable) {
        if (!allowReading(ruleset, path)) {
            return path.string() + ": " + std::strerror(errno);
        }
    }
    if (syscall(SYS_landlock_restrict_self, ruleset.value(), 0) != 0) {
        return std::strerror(errno);
    }
    return {};
}

} // namespace ovrin::sandbox
