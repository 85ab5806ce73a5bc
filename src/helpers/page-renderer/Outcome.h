#pragma once

#include <cstddef>

namespace ovrin {

/// How `page-renderer` ended: its exit status. Only after `Rendered` does its standard output mean anything;
/// then it is the outer HTML as UTF-8, whole.
enum class RenderOutcome : int {
    Rendered = 0,
    /// The page could not be brought or shown: no such host, refused, too many redirects, a file to download.
    Failed = 1,
    /// There is no display, so that no page can be rendered at all.
    Unavailable = 2,
    /// The time was up before there was anything to read.
    TimedOut = 3,
    /// The document is longer than `maxRenderedBytes`.
    TooLarge = 4,
    /// Whoever asked went away or asked to stop.
    Stopped = 5,
    /// The command line is wrong.
    Misused = 64,
};

/// What a rendered document may have, in bytes of UTF-8.
constexpr std::size_t maxRenderedBytes = std::size_t{32} * 1024 * 1024;

} // namespace ovrin
