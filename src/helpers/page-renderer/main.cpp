#include "helpers/page-renderer/Family.h"
#include "helpers/page-renderer/PageLoad.h"
#include "helpers/page-renderer/PageView.h"
#include "helpers/page-renderer/Request.h"
#include "helpers/page-renderer/SocksGate.h"
#include "helpers/page-renderer/Surroundings.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

using namespace ovrin;

/// Past this the worker is not asked any more, it is ended.
constexpr auto grace = std::chrono::seconds(2);

bool writeAll(int file, std::string_view what)
{
    while (!what.empty()) {
        const ssize_t count = write(file, what.data(), what.size());
        if (count < 0 && errno != EINTR)
            return false;
        what.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return true;
}

RenderOutcome renderTo(int output, const RenderRequest& request, const std::filesystem::path& folder)
{
    if (!enterOwnSurroundings(folder))
        return RenderOutcome::Failed;
    if (!gtk_init_check())
        return RenderOutcome::Unavailable;
    AddressRule rule(request.host, request.publicOnly, resolveBySystem);
    SocksGate gate(rule);
    if (!gate.start())
        return RenderOutcome::Failed;
    const RenderedPage page = loadPage(makePageView(gate.address()), request.address, request.deadline);
    const bool written = page.outcome != RenderOutcome::Rendered || writeAll(output, page.html);
    // The gate's threads may be in the middle of something; nothing here needs them to finish.
    _exit(static_cast<int>(written ? page.outcome : RenderOutcome::Failed));
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
        // The page's processes inherit the standard output: it is not to be theirs to write to.
        const int output = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
        if (output < 0 || dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
            return static_cast<int>(RenderOutcome::Failed);
        return static_cast<int>(renderTo(output, *request, folder));
    });
}
