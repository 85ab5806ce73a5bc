#pragma once

#include <filesystem>

namespace ovrin {

/// Replaces the environment: what rendering needs is kept, every folder of the user's becomes one below
/// `folder`, no session bus is reachable, and whatever else there was (tokens, say) is gone. False when it
/// cannot be done.
bool enterOwnSurroundings(const std::filesystem::path& folder);

} // namespace ovrin
