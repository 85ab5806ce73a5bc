#include "platform/instance/ApplicationObject.h"

#include "platform/instance/RunningInstance.h"

namespace ovrin {

ApplicationObject::ApplicationObject(RunningInstance& instance)
    : QDBusAbstractAdaptor(&instance)
    , m_instance(instance)
{
}

void ApplicationObject::Activate(const QVariantMap& platformData)
{
    Q_EMIT m_instance.requested({{}, {}, ActivationToken::fromPlatformData(platformData)});
}

void ApplicationObject::Open(const QStringList& uris, const QVariantMap& platformData)
{
    StartRequest request{{}, {}, ActivationToken::fromPlatformData(platformData)};
    for (const QString& uri : uris)
        request.addresses.append(QUrl::fromEncoded(uri.toUtf8()));
    Q_EMIT m_instance.requested(request);
}

void ApplicationObject::ActivateAction(const QString& name, const QVariantList&,
                                       const QVariantMap& platformData)
{
    Q_EMIT m_instance.requested({{}, name, ActivationToken::fromPlatformData(platformData)});
}

} // namespace ovrin
