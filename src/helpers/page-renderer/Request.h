#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace ovrin {

/// What one run of the helper is for.
struct RenderRequest
{
    /// An http or https address with a host.
    std::string address;
    /// Host of `address`: lower case, ASCII, an IPv6 one without brackets.
    std::string host;
    std::chrono::steady_clock::time_point deadline;
    /// Refuse private addresses even to `host` itself.
    bool publicOnly = false;
};

/// Reads `[--public-only] --timeout MILLISECONDS ADDRESS`; nothing when it is anything else. The time runs
/// from this call.
std::optional<RenderRequest> readRequest(int argc, char** argv);

} // namespace ovrin
