#pragma once

#include "model/FlagStore.h"

#include <QtCore/QSettings>

namespace ovrin {

/// The user's defaults in a settings file.
class SettingsFlags : public FlagStore
{
public:
    explicit SettingsFlags(QSettings& settings)
        : m_settings(settings)
    {
    }
    bool flag(const QString& key) const override;
    void setFlag(const QString& key, bool value) override;

private:
    QSettings& m_settings;
};

} // namespace ovrin
