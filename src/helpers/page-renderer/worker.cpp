#include "helpers/page-renderer/PageLoad.h"
#include "helpers/page-renderer/PageView.h"
#include "helpers/page-renderer/Request.h"
#include "helpers/page-renderer/SocksGate.h"
#include "helpers/page-renderer/Surroundings.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

using namespace ovrin;

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

/// Started by page-renderer, with the folder to live in before its own arguments.
int main(int argc, char** argv)
{
    const std::optional<RenderRequest> request = argc > 1 ? readRequest(argc - 1, argv + 1) : std::nullopt;
    if (!request)
        return static_cast<int>(RenderOutcome::Misused);
    // The page's processes inherit the standard output: it is not to be theirs to write to.
    const int output = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    if (output < 0 || dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
        return static_cast<int>(RenderOutcome::Failed);
    return static_cast<int>(renderTo(output, *request, argv[1]));
}
