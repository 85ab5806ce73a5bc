#include "helpers/page-renderer/Family.h"
#include "helpers/page-renderer/Outcome.h"
#include "helpers/page-renderer/Request.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace ovrin;

/// Past this the worker is not asked any more, it is ended.
constexpr auto grace = std::chrono::seconds(2);

/// Whether the environment names a display at all; asked before anything heavy is started.
bool hasDisplay()
{
    const auto named = [](const char* variable) {
        const char* value = std::getenv(variable);
        return value != nullptr && *value != '\0';
    };
    return named("DISPLAY") || named("WAYLAND_DISPLAY");
}

/// WebKit's libraries start threads as soon as they are loaded, and a process with threads can neither fork
/// safely nor count on its signals: hence a program of its own, beside this one.
int becomeRenderer(const RenderRequest& request, const std::filesystem::path& folder)
{
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::string program = self.parent_path() / "page-renderer-worker";
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(request.deadline - std::chrono::steady_clock::now());
    if (left.count() < 1)
        return static_cast<int>(RenderOutcome::TimedOut);
    const std::string time = std::to_string(left.count());
    const char* publicOnly = request.publicOnly ? "--public-only" : "--";
    execl(program.c_str(), program.c_str(), folder.c_str(), "--timeout", time.c_str(), publicOnly,
          request.address.c_str(), nullptr);
    return static_cast<int>(RenderOutcome::Failed);
}

} // namespace

int main(int argc, char** argv)
{
    // Nothing that whoever started us left open is to reach the web's processes.
    close_range(3, ~0U, 0);
    const std::optional<RenderRequest> request = readRequest(argc, argv);
    if (!request) {
        std::fputs("usage: page-renderer [--public-only] --timeout MILLISECONDS ADDRESS\n", stderr);
        return static_cast<int>(RenderOutcome::Misused);
    }
    if (!hasDisplay())
        return static_cast<int>(RenderOutcome::Unavailable);
    return runWithFamily(request->deadline + grace, [&request](const std::filesystem::path& folder) {
        return becomeRenderer(*request, folder);
    });
}
