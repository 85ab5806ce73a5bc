#pragma once

#include "model/Instant.h"
#include "model/RecipeDraft.h"

#include <QtCore/QString>

#include <optional>

namespace ovrin {

/// The folder in which companions leave drafts for the application; nothing when this build has none.
std::optional<QString> inboxFolder();

/// Leaves a draft there, whole or not at all. The path of its file, or nothing when it could not be written.
std::optional<QString> leaveInInbox(const RecipeDraft& draft, Instant now);

/// What to tell a person whose draft could not be left there.
QString inboxFailure();

} // namespace ovrin
