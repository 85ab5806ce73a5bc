#pragma once

#include "cooking/UserNotificationCenter.h"

namespace ovrin {

/// Has timer notes appear while the application is in front as they do otherwise. Holds no state.
class NotificationPresenter final : public UserNotificationCenter::Delegate
{
public:
    UserNotificationCenter::Presentation
    presentation(const UserNotificationCenter::Request& request) const override;
};

} // namespace ovrin
