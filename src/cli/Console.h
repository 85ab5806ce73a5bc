#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <stdexcept>

namespace ovrin::cli {

/// The exit statuses that every verb shares.
enum ExitStatus { Done = 0, Failed = 1, WrongUsage = 2, NeedsReview = 3 };

/// Where a verb reads and writes, and the locale whose numbers it speaks.
struct Console
{
    QIODevice& in;
    QIODevice& out;
    QIODevice& err;
    QLocale locale;

    /// One line of data on standard output.
    void print(const QString& line) const;
    void print(const QByteArray& utf8Line) const;
    /// One line of a message on standard error.
    void complain(const QString& message) const;
    /// Calls `use` for every line of standard input, without its line break (LF or CR LF).
    void eachLine(const std::function<void(const QString&)>& use) const;
};

/// The thing asked for failed: exit status 1 with this message.
struct Failure : std::runtime_error
{
    explicit Failure(const QString& message)
        : std::runtime_error(message.toStdString())
    {
    }
};

/// The command was called wrongly: exit status 2 with this message and the verb's usage.
struct UsageError : std::runtime_error
{
    explicit UsageError(const QString& message)
        : std::runtime_error(message.toStdString())
    {
    }
};

/// What was given after a verb: positional arguments, and options with their values.
struct Arguments
{
    QStringList positional;
    QHash<QString, QString> options;

    bool has(const QString& option) const { return options.contains(option); }
    /// The value of `option`, or `otherwise` when it was not given.
    QString value(const QString& option, const QString& otherwise = {}) const
    {
        return options.value(option, otherwise);
    }
    /// The positional argument at `index`; a usage error naming `what` when it is missing.
    QString required(int index, const QString& what) const;
    /// `--scale F` or the like as a number; a usage error when it is none or not above 0.
    double factor(const QString& option) const;
};

struct Option
{
    QString name;
    /// What its value is called in the help; empty for a flag.
    QString value;
    QString help;
};

/// One verb of the command line.
struct Verb
{
    QString name;
    QString synopsis;
    QString help;
    QList<Option> options;
    /// How many positional arguments it takes; -1 for any number.
    int maximumArguments;
    std::function<int(const Arguments&, const Console&)> run;
};

/// Reads `words` by the options that `verb` declares. Throws UsageError.
Arguments readArguments(const Verb& verb, const QStringList& words);

/// The whole file, or standard input for "-". Throws Failure when it cannot be read or is larger than `limit`
/// bytes.
QByteArray readFile(const QString& path, const Console& console, qint64 limit);

} // namespace ovrin::cli
