#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace ovrin {

/// Keeps the display awake as long as it lives. The desktop lets go of it by itself when the application
/// dies, and is asked anew when its service was restarted. Without such a service nothing happens. Source:
/// org.freedesktop.ScreenSaver, methods Inhibit and UnInhibit; where it is missing, as in a sandbox, the
/// desktop portal's org.freedesktop.portal.Inhibit.
class DisplayAwake final : public QObject
{
    Q_OBJECT
public:
    /// `reason` is for the user, who may be shown what keeps the display on.
    explicit DisplayAwake(const QString& reason, const QDBusConnection& bus = QDBusConnection::sessionBus());
    ~DisplayAwake() override;

private:
    void ask();
    void askPortal();

    QString m_reason;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    uint m_cookie = 0;
    /// The portal's handle.
    QString m_request;
};

} // namespace ovrin
