#include "platform/instance/RunningInstance.h"

#include "platform/instance/ApplicationObject.h"
#include "platform/instance/LibraryName.h"

#include <QtDBus/QDBusConnectionInterface>

namespace ovrin {

RunningInstance::RunningInstance(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
{
    new ApplicationObject(*this);
}

RunningInstance::~RunningInstance()
{
    for (const QString& name : std::as_const(m_names))
        m_bus.unregisterService(name);
    m_bus.unregisterObject(applicationPath);
}

RunningInstance::Claim RunningInstance::claim(const QString& folder, bool isUsual)
{
    // The object before the names: who finds the name calls at once.
    if (!m_bus.isConnected() || !m_bus.registerObject(applicationPath, this))
        return Claim::Alone;
    const QString name = libraryName(folder);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        m_bus.interface()->registerService(name);
    if (!reply.isValid())
        return Claim::Alone;
    if (reply.value() == QDBusConnectionInterface::ServiceNotRegistered)
        return Claim::HeldByAnother;
    m_names.append(name);
    if (isUsual && m_bus.registerService(applicationName))
        m_names.append(applicationName);
    return Claim::Taken;
}

} // namespace ovrin
