#pragma once

#include "helpers/page-renderer/Outcome.h"

#include <webkit/webkit.h>

#include <chrono>
#include <string>

namespace ovrin {

struct RenderedPage
{
    RenderOutcome outcome = RenderOutcome::TimedOut;
    /// UTF-8; empty unless `outcome` is Rendered.
    std::string html;
};

/// Loads `address` into `view` and looks at the document every half second once it has loaded. Returns when
/// it holds a JSON-LD script, when it cannot be loaded, or at the deadline with what there is by then. Runs
/// the main loop.
RenderedPage loadPage(WebKitWebView* view, const std::string& address,
                      std::chrono::steady_clock::time_point deadline);

} // namespace ovrin
