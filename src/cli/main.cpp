#include "cli/Console.h"
#include "cli/DraftVerb.h"
#include "cli/LibraryVerbs.h"
#include "cli/TextVerbs.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <cstdio>

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

QString helpOf(const Verb& verb)
{
    QString text = QStringLiteral("Usage: ovrin-cli %1\n\n%2").arg(verb.synopsis, verb.help);
    if (!verb.options.isEmpty())
        text += QStringLiteral("\n");
    for (const Option& option : verb.options) {
        const QString name =
            QStringLiteral("--") + option.name + (option.value.isEmpty() ? QString() : u' ' + option.value);
        text += QStringLiteral("\n  %1 %2").arg(name, -22).arg(option.help);
    }
    return text;
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
    if (words.contains(QStringLiteral("--help"))) {
        console.print(helpOf(*verb));
        return Done;
    }
    try {
        return verb->run(readArguments(*verb, words), console);
    } catch (const UsageError& error) {
        console.complain(
            QStringLiteral("%1\nUsage: ovrin-cli %2").arg(QString::fromUtf8(error.what()), verb->synopsis));
        return WrongUsage;
    } catch (const Failure& failure) {
        console.complain(QString::fromUtf8(failure.what()));
        return Failed;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ovrin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OVRIN_VERSION));
    QFile in;
    QFile out;
    QFile err;
    if (!in.open(stdin, QIODevice::ReadOnly) || !out.open(stdout, QIODevice::WriteOnly) ||
        !err.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Failed;
    const int status = run(QCoreApplication::arguments().mid(1), Console{in, out, err, QLocale::system()});
    // A full disk or a closed pipe behind standard output is a failure, not a success without data.
    return out.flush() && std::fflush(stdout) == 0 ? status : (status == Done ? int(Failed) : status);
}
