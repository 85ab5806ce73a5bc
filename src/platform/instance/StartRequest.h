#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>

namespace ovrin {

/// What shows the window system that a person asked for a window. Without it a window may be refused the
/// focus. Source: freedesktop.org's xdg-activation and Startup Notification, and the keys that Desktop Entry
/// gives them in the platform data of `org.freedesktop.Application`.
struct ActivationToken
{
    /// "activation-token"; $XDG_ACTIVATION_TOKEN.
    QByteArray activation;
    /// "desktop-startup-id"; $DESKTOP_STARTUP_ID.
    QByteArray startupId;

    static ActivationToken fromEnvironment();
    static ActivationToken fromPlatformData(const QVariantMap& data);
    QVariantMap toPlatformData() const;
};

/// What a start of the program asks for; nothing more than the window when everything is empty.
struct StartRequest
{
    /// Files and links, none of them relative.
    QList<QUrl> addresses;
    /// "new-recipe", "import-from-web"; others are ignored.
    QString action;
    ActivationToken token;
};

} // namespace ovrin
