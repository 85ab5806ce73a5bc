#pragma once

#include <QtCore/QString>

namespace ovrin {

/// The user's defaults, as far as the model needs them: named Booleans that are false until set.
class FlagStore
{
public:
    virtual ~FlagStore() = default;
    virtual bool flag(const QString& key) const = 0;
    /// Stored at once.
    virtual void setFlag(const QString& key, bool value) = 0;
};

} // namespace ovrin
