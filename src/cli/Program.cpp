#include "cli/Program.h"

#include <QtCore/QFile>

#include <cstdio>

namespace ovrin::cli {

namespace {

QString helpOf(const QString& program, const Verb& verb)
{
    QString text = QStringLiteral("Usage: %1 %2\n\n%3").arg(program, verb.synopsis, verb.help);
    if (!verb.options.isEmpty())
        text += QStringLiteral("\n");
    for (const Option& option : verb.options) {
        const QString name =
            QStringLiteral("--") + option.name + (option.value.isEmpty() ? QString() : u' ' + option.value);
        text += QStringLiteral("\n  %1 %2").arg(name, -22).arg(option.help);
    }
    return text;
}

} // namespace

int runVerb(const QString& program, const Verb& verb, const QStringList& words, const Console& console)
{
    if (words.contains(QStringLiteral("--help"))) {
        console.print(helpOf(program, verb));
        return Done;
    }
    try {
        return verb.run(readArguments(verb, words), console);
    } catch (const UsageError& error) {
        console.complain(
            QStringLiteral("%1\nUsage: %2 %3").arg(QString::fromUtf8(error.what()), program, verb.synopsis));
        return WrongUsage;
    } catch (const Failure& failure) {
        console.complain(QString::fromUtf8(failure.what()));
        return Failed;
    }
}

int onStandardStreams(const std::function<int(const Console&)>& run)
{
    QFile in;
    QFile out;
    QFile err;
    if (!in.open(stdin, QIODevice::ReadOnly) || !out.open(stdout, QIODevice::WriteOnly) ||
        !err.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Failed;
    const int status = run(Console{in, out, err, QLocale::system()});
    // A full disk or a closed pipe behind standard output is a failure, not a success without data.
    return out.flush() && std::fflush(stdout) == 0 ? status : (status == Done ? int(Failed) : status);
}

} // namespace ovrin::cli
