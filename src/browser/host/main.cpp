// The program that a browser starts to reach Ovrin: it takes the page that a person is looking at from our
// extension and leaves its recipe in the inbox.

#include "browser/host/Host.h"
#include "browser/host/NativeMessages.h"
#include "services/Awaited.h"
#include "services/Inbox.h"
#include "services/PageImport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

using namespace ovrin;
using namespace ovrin::browser;

namespace {

Sent leave(const SentPage& page)
{
    PageImport pages(QCoreApplication::applicationDirPath());
    const RecipeDraft draft = awaited(pages.savedPage(page.html, page.address));
    if (!leaveInInbox(draft, systemNow()))
        throw Refusal{inboxFailure()};
    return {.title = draft.title, .isComplete = draft.isComplete()};
}

/// A browser that is still writing when we go forgets our answer: read on until it has let go.
void letTheBrowserFinish()
{
    constexpr int patience = 10'000; // milliseconds
    char nothing[65536];
    pollfd input{STDIN_FILENO, POLLIN, 0};
    while (::poll(&input, 1, patience) > 0 && ::read(STDIN_FILENO, nothing, sizeof nothing) > 0) {
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ovrin"));
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments == QStringList{QStringLiteral("--version")}) {
        std::puts("ovrin-browser-host " OVRIN_VERSION);
        return 0;
    }
    if (!isOurExtension(arguments)) {
        std::fputs("ovrin-browser-host is started by a browser, for Ovrin's extension alone.\n", stderr);
        return 2;
    }
    std::signal(SIGPIPE, SIG_IGN);
    QFile in;
    QFile out;
    if (!in.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        !out.open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    const bool taken = takePage(in, out, leave);
    letTheBrowserFinish();
    return taken ? 0 : 1;
}
