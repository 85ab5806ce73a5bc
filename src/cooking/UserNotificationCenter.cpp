#include "cooking/UserNotificationCenter.h"

namespace ovrin {

UserNotificationCenter::~UserNotificationCenter() = default;

UserNotificationCenter::Presentation UserNotificationCenter::presentation(const Request& request) const
{
    return m_delegate ? m_delegate->presentation(request) : Presentation{};
}

} // namespace ovrin
