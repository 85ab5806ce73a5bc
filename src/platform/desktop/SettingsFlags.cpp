#include "platform/desktop/SettingsFlags.h"

namespace ovrin {

bool SettingsFlags::flag(const QString& key) const
{
    return m_settings.value(key, false).toBool();
}

void SettingsFlags::setFlag(const QString& key, bool value)
{
    m_settings.setValue(key, value);
    m_settings.sync();
}

} // namespace ovrin
