#pragma once

#include "browser/host/PageAssembly.h"

#include <QtCore/QIODevice>
#include <QtCore/QStringList>

#include <functional>

namespace ovrin::browser {

/// What became of a page that was taken.
struct Sent
{
    QString title;
    /// Whether Ovrin keeps it as it is; otherwise a person fills in what is missing.
    bool isComplete = false;
};

/// Whether a browser's way of starting a host (`arguments` without the program's name) says that our
/// extension asks: Chromium gives its origin, Firefox the manifest's path and the extension's id.
bool isOurExtension(const QStringList& arguments);

/// Takes one page from `in`, gives it to `leave`, and tells on `out` what became of it:
///
///     {"sent": true, "title": "Onion Soup", "complete": true}
///     {"sent": false, "message": "No recipe was found on this page."}
///
/// `leave` throws Refusal, or whatever importErrorDescription() knows. True when the page was taken.
bool takePage(QIODevice& in, QIODevice& out, const std::function<Sent(SentPage)>& leave);

} // namespace ovrin::browser
