#pragma once

#include "ui/desktop/Appearance.h"

#include <QtCore/QVariant>
#include <QtDBus/QDBusVariant>

namespace ovrin {

/// Follows the desktop's settings through its portal, `org.freedesktop.portal.Settings`:
/// `org.freedesktop.appearance` `color-scheme` (1 is dark), and of GNOME's and KDE's own settings what tells
/// of animations and of text size. Without a portal it stays at the defaults.
class PortalAppearance : public Appearance
{
    Q_OBJECT

public:
    /// Asks the session bus and does not wait long for the first answer: the window's first frame has its
    /// colours.
    explicit PortalAppearance(QObject* parent = nullptr);

    /// One setting as the portal gives it. Values are unpacked from as many variants as they lie in.
    void take(const QString& group, const QString& key, const QVariant& value);

private Q_SLOTS:
    void onChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAll();
};

} // namespace ovrin
