#pragma once

#include <QtCore/QUrl>

namespace ovrin {

/// What the interface asks of the desktop around it.
class DesktopActions
{
public:
    virtual ~DesktopActions() = default;
    /// Opens a web address, or a `mailto:` one, in the program the user has for it. False when there is none.
    virtual bool open(const QUrl& url) = 0;
};

} // namespace ovrin
