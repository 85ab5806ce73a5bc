#pragma once

#include "cli/Console.h"

namespace ovrin::cli {

/// draft: a page, a saved page or a batch of them to RecipeDraft values.
QList<Verb> draftVerbs();

} // namespace ovrin::cli
