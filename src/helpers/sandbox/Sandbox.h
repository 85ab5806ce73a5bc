#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

/// The cage for a process that parses hostile bytes. Entered once, by the main thread, before there is
/// another; there is no way out of it.
namespace ovrin::sandbox {

/// What a caged process may still use.
struct Confinement
{
    /// Files, and folders with all below them, that can be opened for reading. Those that do not exist are
    /// skipped.
    std::vector<std::filesystem::path> readable;
    /// Bytes of address space. Not set in builds with the address
    /// sanitizer, which reserves terabytes at start.
    std::size_t memoryBytes = 0;
    /// Processor time, and time on the wall, until the system ends the process.
    std::chrono::seconds time{0};
};

/// Enters the cage: nothing but `readable` can be opened and that only for reading; no socket, no process, no
/// signal to others; the limits above. Each layer that this system lacks is left out and named in the result.
std::vector<std::string> enter(const Confinement& confinement);

/// The layers of `enter`, each with the reason when the system lacks it, empty when it holds.
std::string restrictFiles(const std::vector<std::filesystem::path>& readable);
std::string restrictSystemCalls();
std::string restrictResources(std::size_t memoryBytes, std::chrono::seconds time);
/// The part of its memory that the process may write to, which is what it really takes: libraries and the
/// stacks of threads fill address space, but hardly any memory.
std::string restrictWrittenMemory(std::size_t bytes);

} // namespace ovrin::sandbox
