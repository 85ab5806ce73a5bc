#include "cli/Console.h"
#include "cli/DraftVerb.h"
#include "cli/LibraryVerbs.h"
#include "cli/Program.h"
#include "cli/TextVerbs.h"

#include <QtCore/QCoreApplication>

using namespace ovrin::cli;

namespace {

QList<Verb> allVerbs()
{
    return draftVerbs() + textVerbs() + libraryVerbs();
}

QString overview(const QList<Verb>& verbs)
{
    QString text = QStringLiteral("ovrin-cli: your recipe library without a window\n\n");
    for (const Verb& verb : verbs)
        text += QStringLiteral("  ovrin-cli %1\n").arg(verb.synopsis);
    return text +
           QStringLiteral("\n“ovrin-cli VERB --help” says more of each. Exit status: 0 done, 1 failed,\n"
                          "2 wrong usage, 3 the draft needs review (printed all the same).");
}

/// The verb that `words` begin with, and what follows it. "library list" is a verb of two words;
/// `--store DIR` may stand before it.
const Verb* take(const QList<Verb>& verbs, QStringList& words)
{
    QStringList leading;
    while (!words.isEmpty() && words.first().startsWith(QLatin1String("--store"))) {
        leading << words.takeFirst();
        if (!leading.last().contains(u'=') && !words.isEmpty())
            leading << words.takeFirst();
    }
    for (const Verb& verb : verbs) {
        const QStringList name = verb.name.split(u' ');
        if (words.mid(0, name.size()) == name) {
            words = leading + words.mid(name.size());
            return &verb;
        }
    }
    words = leading + words;
    return nullptr;
}

int run(QStringList words, const Console& console)
{
    const QList<Verb> verbs = allVerbs();
    const QStringList asked = words;
    const Verb* verb = take(verbs, words);
    if (!verb) {
        if (asked == QStringList{QStringLiteral("--version")}) {
            console.print(QStringLiteral("ovrin-cli " OVRIN_VERSION));
            return Done;
        }
        if (asked.contains(QStringLiteral("--help")) || asked == QStringList{QStringLiteral("help")}) {
            console.print(overview(verbs));
            return Done;
        }
        console.complain(
            asked.isEmpty()
                ? overview(verbs)
                : QStringLiteral("ovrin-cli: there is no verb “%1”. “ovrin-cli --help” lists them.")
                      .arg(asked.join(u' ')));
        return WrongUsage;
    }
    return runVerb(QStringLiteral("ovrin-cli"), *verb, words, console);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ovrin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OVRIN_VERSION));
    return onStandardStreams(
        [](const Console& console) { return run(QCoreApplication::arguments().mid(1), console); });
}
