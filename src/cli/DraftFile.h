#pragma once

#include "cli/Console.h"
#include "model/RecipeDraft.h"

namespace ovrin::cli {

/// A larger input is no draft.
constexpr qint64 maximumDraftBytes = qint64(128) << 20;

/// The draft in a JSON file, or on standard input for "-". Throws Failure when there is none.
RecipeDraft readDraft(const QString& path, const Console& console);

} // namespace ovrin::cli
