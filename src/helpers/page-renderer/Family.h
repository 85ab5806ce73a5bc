#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

namespace ovrin {

/// Runs `work` in a child process and returns its exit status once the child and everything that it started,
/// in whatever session or namespace, is gone. The end comes when `work` returns, at `limit`, when standard
/// input is closed (so whoever started us needs only to die or to close its end of a pipe), or on SIGTERM,
/// SIGINT and SIGHUP. `work` is given an empty folder of its own, removed afterwards, and finds its
/// standard input empty.
/// Must be called while the process has one thread. Returns RenderOutcome values for what `work` did not
/// decide.
int runWithFamily(std::chrono::steady_clock::time_point limit,
                  const std::function<int(const std::filesystem::path&)>& work);

} // namespace ovrin
