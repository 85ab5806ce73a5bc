#include "platform/desktop/QtDesktopActions.h"

#include <QtGui/QDesktopServices>

namespace ovrin {

bool QtDesktopActions::open(const QUrl& url)
{
    return QDesktopServices::openUrl(url);
}

} // namespace ovrin
