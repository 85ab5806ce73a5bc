#include "platform/instance/StartRequest.h"

namespace ovrin {

namespace {
const QString activationKey = QStringLiteral("activation-token");
const QString startupKey = QStringLiteral("desktop-startup-id");
} // namespace

ActivationToken ActivationToken::fromEnvironment()
{
    return {qgetenv("XDG_ACTIVATION_TOKEN"), qgetenv("DESKTOP_STARTUP_ID")};
}

ActivationToken ActivationToken::fromPlatformData(const QVariantMap& data)
{
    return {data.value(activationKey).toString().toUtf8(), data.value(startupKey).toString().toUtf8()};
}

QVariantMap ActivationToken::toPlatformData() const
{
    QVariantMap data;
    if (!activation.isEmpty())
        data.insert(activationKey, QString::fromUtf8(activation));
    if (!startupId.isEmpty())
        data.insert(startupKey, QString::fromUtf8(startupId));
    return data;
}

} // namespace ovrin
