#include "cooking/NotificationPresenter.h"

namespace ovrin {

UserNotificationCenter::Presentation
NotificationPresenter::presentation(const UserNotificationCenter::Request&) const
{
    return {.banner = true, .sound = true};
}

} // namespace ovrin
