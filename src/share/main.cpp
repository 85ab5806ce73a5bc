#include "cli/Program.h"
#include "cli/Sources.h"
#include "services/Inbox.h"

#include <QtCore/QCoreApplication>

using namespace ovrin;
using namespace ovrin::cli;

namespace {

int share(const Arguments& arguments, const Console& console)
{
    if (arguments.has(QStringLiteral("version"))) {
        console.print(QStringLiteral("ovrin-share " OVRIN_VERSION));
        return Done;
    }
    const SourceOptions options{.rendersPages = !arguments.has(QStringLiteral("static")),
                                .fetchesPhotos = !arguments.has(QStringLiteral("no-photo")),
                                .pageUrl = arguments.value(QStringLiteral("page-url"))};
    const QString source = arguments.required(0, QStringLiteral("URL, FILE or “-”"));
    const Imported imported = importSource(source, options, console);
    const auto file = leaveInInbox(imported.draft, systemNow());
    if (!file)
        throw Failure(inboxFailure());
    console.print(*file);
    // The application keeps at once only what it can tell from what it has: by the page's address.
    return imported.needsReview || !imported.draft.sourceURL ? NeedsReview : Done;
}

Verb shareVerb()
{
    return {{},
            QStringLiteral("URL | FILE | -"),
            QStringLiteral(
                "Imports a web address, a document, a saved .html page or a draft's .json, and leaves the\n"
                "recipe in Ovrin's inbox, where Ovrin finds it. “-” is standard input: a page, an\n"
                "address, a draft or plain text. Prints the path of the file that it left. Exit status:\n"
                "0 done, 1 failed, 2 wrong usage, 3 left there for you to review."),
            {{QStringLiteral("page-url"), QStringLiteral("ADDRESS"),
              QStringLiteral("where a saved page came from")},
             {QStringLiteral("static"), {}, QStringLiteral("never render the page")},
             {QStringLiteral("no-photo"), {}, QStringLiteral("fetch and cut no photo")},
             {QStringLiteral("version"), {}, QStringLiteral("print the version")}},
            1,
            share};
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ovrin"));
    return onStandardStreams([](const Console& console) {
        const QStringList words = QCoreApplication::arguments().mid(1);
        return runVerb(QStringLiteral("ovrin-share"), shareVerb(), words, console);
    });
}
