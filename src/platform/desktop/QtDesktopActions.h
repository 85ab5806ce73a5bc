#pragma once

#include "ui/desktop/DesktopActions.h"

namespace ovrin {

/// Opens addresses as the desktop is set up to.
class QtDesktopActions : public DesktopActions
{
public:
    bool open(const QUrl& url) override;
};

} // namespace ovrin
