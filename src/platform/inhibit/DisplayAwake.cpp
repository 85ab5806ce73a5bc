#include "platform/inhibit/DisplayAwake.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

namespace ovrin {

namespace {

const QString screenSaver = QStringLiteral("org.freedesktop.ScreenSaver");
const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");

QDBusMessage screenSaverCall(const QString& method)
{
    return QDBusMessage::createMethodCall(screenSaver, QStringLiteral("/org/freedesktop/ScreenSaver"),
                                          screenSaver, method);
}

/// Calls `answered` with the reply, unless `owner` is gone by then.
template<typename Reply, typename Answered>
void onReply(const QDBusPendingCall& call, QObject* owner, Answered answered)
{
    auto* const watcher = new QDBusPendingCallWatcher(call, owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, answered] {
        const QDBusPendingReply<Reply> reply = *watcher;
        answered(reply);
        watcher->deleteLater();
    });
}

} // namespace

DisplayAwake::DisplayAwake(const QString& reason, const QDBusConnection& bus)
    : m_reason(reason)
    , m_bus(bus)
    , m_watcher(screenSaver, bus, QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &DisplayAwake::ask);
    if (m_bus.isConnected())
        ask();
}

DisplayAwake::~DisplayAwake()
{
    if (m_cookie != 0)
        m_bus.send(screenSaverCall(QStringLiteral("UnInhibit")) << m_cookie);
    if (!m_request.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(
            portal, m_request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")));
}

void DisplayAwake::ask()
{
    m_cookie = 0;
    const QDBusPendingCall call =
        m_bus.asyncCall(screenSaverCall(QStringLiteral("Inhibit")) << QStringLiteral("Ovrin") << m_reason);
    onReply<uint>(call, this, [this](const QDBusPendingReply<uint>& reply) {
        if (reply.isValid())
            m_cookie = reply.value();
        else if (m_request.isEmpty())
            askPortal();
    });
}

void DisplayAwake::askPortal()
{
    constexpr uint idle = 8;
    const QDBusMessage message =
        QDBusMessage::createMethodCall(portal, QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.Inhibit"),
                                       QStringLiteral("Inhibit"))
        << QString() << idle << QVariantMap{{QStringLiteral("reason"), m_reason}};
    onReply<QDBusObjectPath>(m_bus.asyncCall(message), this,
                             [this](const QDBusPendingReply<QDBusObjectPath>& reply) {
                                 if (reply.isValid())
                                     m_request = reply.value().path();
                             });
}

} // namespace ovrin
