#include "helpers/document-reader/Cage.h"
#include "helpers/document-reader/Conversation.h"

#include <csignal>
#include <iostream>

#include <sys/prctl.h>
#include <unistd.h>

// Reads hostile bytes so that the application need not: one request on standard input, one answer on standard
// output, then the end. One process a request, so that what poisons one answer cannot reach the next.
//
// Exit codes: 0 answered (a plain no included), 1 no request came, 2 the answer could not be sent.

#ifdef OVRIN_SANITIZED
// At exit the leak check would start a process, which the cage forbids.
extern "C" const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "detect_leaks=0";
}
#endif

namespace {

/// The application's descriptors are none of this process's business, nor must a library's chatter on
/// standard output get between the answer's bytes: it goes to the log.
int ownOutput()
{
    close_range(3, ~0U, 0);
    const auto output = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return output;
}

} // namespace

int main()
{
    using namespace ovrin;
    // Dies with the application; one that is gone already leaves an empty standard input.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGPIPE, SIG_IGN);
    const auto output = ownOutput();
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    for (const auto& layer : sandbox::enter(documentreader::cage(folder))) {
        std::cerr << "document-reader: this system lacks " << layer << "; going on without it\n";
    }
    const auto request = documentreader::receivedRequest(STDIN_FILENO);
    if (!request) {
        return 1;
    }
    // No destructors of a dozen libraries: what they hold goes with the process.
    _exit(documentreader::send(documentreader::answer(*request, folder), output) ? 0 : 2);
}
