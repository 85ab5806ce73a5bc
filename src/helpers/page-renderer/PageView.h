#pragma once

#include <webkit/webkit.h>

#include <string>

namespace ovrin {

/// A view of 1024 x 768 without a window, whose network session keeps nothing and goes through `proxy`, and
/// which refuses whatever a page may ask of a person or of the machine: dialogs, windows, downloads, sound,
/// permissions, credentials, and addresses other than http and https. The caller owns it.
WebKitWebView* makePageView(const std::string& proxy);

} // namespace ovrin
