#pragma once

#include "platform/instance/StartRequest.h"

#include <QtCore/QCommandLineParser>

namespace ovrin {

/// What `ovrin` may be started with.
class CommandLine
{
public:
    CommandLine();

    /// Whether `arguments` are a plain start: nothing wrong with them, and neither help nor version asked
    /// for.
    bool isPlainStart(const QStringList& arguments);
    /// As above, but says what is wrong, or what was asked for, and ends the process. Needs an application.
    void process(const QStringList& arguments) { m_parser.process(arguments); }

    /// The library's folder; empty for the usual one.
    QString store() const { return m_parser.value(m_store); }
    /// Started by the bus: a window is shown when one is asked for.
    bool isService() const { return m_parser.isSet(m_service); }
    StartRequest request() const;

private:
    QCommandLineParser m_parser;
    QCommandLineOption m_store;
    QCommandLineOption m_newRecipe;
    QCommandLineOption m_import;
    QCommandLineOption m_service;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
};

} // namespace ovrin
