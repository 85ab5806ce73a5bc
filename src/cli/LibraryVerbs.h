#pragma once

#include "cli/Console.h"

namespace ovrin::cli {

/// library list, show, add, import, remove, check, groceries: the library in a folder.
QList<Verb> libraryVerbs();

} // namespace ovrin::cli
