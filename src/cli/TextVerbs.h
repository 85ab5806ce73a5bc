#pragma once

#include "cli/Console.h"

namespace ovrin::cli {

/// scale, value, clean, minutes, segments: the text analysers on standard input.
QList<Verb> textVerbs();

} // namespace ovrin::cli
