#include "helpers/document-reader/Cage.h"
#include "helpers/document-reader/Conversation.h"

#include <unistd.h>

// The document reader with one difference: it answers until its input ends, so that a test can send it
// thousands.

#ifdef OVRIN_SANITIZED
extern "C" const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "detect_leaks=0";
}
#endif

int main()
{
    using namespace ovrin::documentreader;
    ovrin::sandbox::enter(cage(OVRIN_MODULES));
    while (const auto request = receivedRequest(STDIN_FILENO)) {
        send(answer(*request, OVRIN_MODULES), STDOUT_FILENO);
    }
    _exit(0);
}
