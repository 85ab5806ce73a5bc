#include "platform/desktop/PortalAppearance.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusReply>

namespace ovrin {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString kde = QStringLiteral("org.kde.kdeglobals.KDE");

/// How long the first frame may wait for the portal.
constexpr int patience = 150;
constexpr uint preferDark = 1;

using Settings = QMap<QString, QVariantMap>;

QVariant unpacked(QVariant value)
{
    for (int depth = 0; depth < 4 && value.canConvert<QDBusVariant>(); ++depth)
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalAppearance::PortalAppearance(QObject* parent)
    : Appearance(parent)
{
    qDBusRegisterMetaType<Settings>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(onChanged(QString, QString, QDBusVariant)));
    readAll();
}

void PortalAppearance::readAll()
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    call << QStringList{appearance, gnome, kde};
    const QDBusReply<Settings> reply = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    if (!reply.isValid())
        return;
    const Settings settings = reply.value();
    for (auto group = settings.begin(); group != settings.end(); ++group)
        for (auto value = group->begin(); value != group->end(); ++value)
            take(group.key(), value.key(), value.value());
}

void PortalAppearance::onChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    take(group, key, value.variant());
}

void PortalAppearance::take(const QString& group, const QString& key, const QVariant& packed)
{
    const QVariant value = unpacked(packed);
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (group == appearance && key == QStringLiteral("color-scheme"))
        setDark(value.toUInt() == preferDark);
    else if (group == gnome && key == QStringLiteral("enable-animations"))
        setMotionReduced(!value.toBool());
    else if (group == gnome && key == QStringLiteral("text-scaling-factor") && isNumber)
        setTextScale(number);
    else if (group == kde && key == QStringLiteral("AnimationDurationFactor") && isNumber)
        setMotionReduced(number == 0);
}

} // namespace ovrin
