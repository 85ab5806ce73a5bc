#include "cli/Console.h"

#include <QtCore/QFile>
#include <QtCore/QHash>

#include <algorithm>

namespace ovrin::cli {

void Console::print(const QString& line) const
{
    print(line.toUtf8());
}

void Console::print(const QByteArray& utf8Line) const
{
    out.write(utf8Line);
    out.write("\n", 1);
}

void Console::complain(const QString& message) const
{
    err.write(message.toUtf8() + '\n');
}

void Console::eachLine(const std::function<void(const QString&)>& use) const
{
    while (!in.atEnd()) {
        QByteArray line = in.readLine();
        if (line.isEmpty())
            break;
        if (line.endsWith('\n'))
            line.chop(1);
        if (line.endsWith('\r'))
            line.chop(1);
        use(QString::fromUtf8(line));
    }
}

QString Arguments::required(int index, const QString& what) const
{
    if (index >= positional.size())
        throw UsageError(QStringLiteral("%1 is missing.").arg(what));
    return positional.at(index);
}

double Arguments::factor(const QString& option) const
{
    bool isNumber = false;
    const double factor = value(option, QStringLiteral("1")).toDouble(&isNumber);
    if (!isNumber || !(factor > 0) || !qIsFinite(factor))
        throw UsageError(
            QStringLiteral("“%1” is no factor: it must be a number above 0.").arg(value(option)));
    return factor;
}

Arguments readArguments(const Verb& verb, const QStringList& words)
{
    Arguments read;
    bool onlyPositional = false;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words.at(i);
        if (onlyPositional || word == QLatin1String("-") || !word.startsWith(QLatin1String("--"))) {
            read.positional << word;
            continue;
        }
        if (word == QLatin1String("--")) {
            onlyPositional = true;
            continue;
        }
        const qsizetype equals = word.indexOf(QLatin1Char('='));
        const QString name = word.mid(2, equals < 0 ? -1 : equals - 2);
        const auto option = std::find_if(verb.options.begin(), verb.options.end(),
                                         [&](const Option& o) { return o.name == name; });
        if (option == verb.options.end())
            throw UsageError(QStringLiteral("There is no option “--%1” here.").arg(name));
        if (option->value.isEmpty()) {
            if (equals >= 0)
                throw UsageError(QStringLiteral("“--%1” takes no value.").arg(name));
            read.options.insert(name, {});
        } else if (equals >= 0) {
            read.options.insert(name, word.mid(equals + 1));
        } else if (++i < words.size()) {
            read.options.insert(name, words.at(i));
        } else {
            throw UsageError(QStringLiteral("“--%1” needs a value: %2.").arg(name, option->value));
        }
    }
    if (verb.maximumArguments >= 0 && read.positional.size() > verb.maximumArguments)
        throw UsageError(
            QStringLiteral("“%1” is one argument too many.").arg(read.positional.at(verb.maximumArguments)));
    return read;
}

QByteArray readFile(const QString& path, const Console& console, qint64 limit)
{
    QByteArray bytes;
    if (path == QLatin1String("-")) {
        bytes = console.in.read(limit + 1);
    } else {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw Failure(QStringLiteral("“%1” could not be read: %2.").arg(path, file.errorString()));
        bytes = file.read(limit + 1);
    }
    if (bytes.size() > limit)
        throw Failure(QStringLiteral("“%1” is too large.").arg(path));
    return bytes;
}

} // namespace ovrin::cli
