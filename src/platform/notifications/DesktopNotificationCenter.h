#pragma once

#include "cooking/UserNotificationCenter.h"
#include "platform/notifications/NotifierLink.h"

#include <QtCore/QHash>

namespace ovrin {

/// Hands every note to the notifier, a small program of its own that shows it at its time through the
/// session's notification service, whatever has become of the application by then.
class DesktopNotificationCenter final : public UserNotificationCenter
{
    Q_OBJECT
public:
    struct Surroundings
    {
        /// The notifier's path.
        QString notifier;
        /// Where it keeps what it waits for: a folder of the user's own that lasts as long as the session.
        QString folder;
        /// The session bus; without one there are no notes.
        QString busAddress;
    };

    /// What the environment says: `$XDG_RUNTIME_DIR/ovrin`, or a folder of the user's own under the temporary
    /// one.
    static Surroundings surroundings(const QString& notifier);

    /// Has the notifier go on with what an earlier run left, should both have been killed.
    explicit DesktopNotificationCenter(const Surroundings& surroundings, QObject* parent = nullptr);
    /// Waits, for a second at most, until the notifier has taken what was added.
    ~DesktopNotificationCenter() override;

    bool requestAuthorization() override;
    void add(const Request& request) override;
    void remove(const QString& id) override;

Q_SIGNALS:
    /// The notifier has written down all that was asked: from here on the application may come to any end.
    void settled();

private:
    struct Errand
    {
        /// For the notifier, said again to every new one until this errand is over.
        QByteArray line;
        bool isTaken = false;
    };

    void run(const QString& id, const std::string& line);
    void onOpened();
    void onLost();
    void onReceived(const QByteArray& line);
    bool isAllTaken() const;

    QByteArray m_busAddress;
    QHash<QString, Errand> m_errands;
    NotifierLink m_link;
};

} // namespace ovrin
