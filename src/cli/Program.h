#pragma once

#include "cli/Console.h"

namespace ovrin::cli {

/// Runs `verb` with the `words` that follow it: its help, what it does, or what was wrong with them, told
/// under the name of `program`. The exit status.
int runVerb(const QString& program, const Verb& verb, const QStringList& words, const Console& console);

/// Runs a program on the standard streams. Data that could not be written make its exit status a failure.
int onStandardStreams(const std::function<int(const Console&)>& run);

} // namespace ovrin::cli
