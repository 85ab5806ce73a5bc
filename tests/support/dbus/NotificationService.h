#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVirtualObject>

namespace ovrin::testing {

/// A notification service that keeps what it was asked to show.
class NotificationService final : public QDBusVirtualObject
{
    Q_OBJECT
public:
    struct Note
    {
        uint number = 0;
        QString title;
        QString body;
        QStringList actions;
        QVariantMap hints;
        int timeout = 0;
    };

    /// Takes its place on the bus at `address`.
    explicit NotificationService(const QString& address,
                                 const QStringList& capabilities = {QStringLiteral("body"),
                                                                    QStringLiteral("actions")});
    ~NotificationService() override;

    void choose(uint note, const QString& action);
    QStringList bodies() const;

    QList<Note> notes;
    QList<uint> closed;
    /// Takes notes without an answer.
    bool isSilent = false;

Q_SIGNALS:
    void changed();

private:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QString m_name;
    QDBusConnection m_connection;
    QStringList m_capabilities;
};

} // namespace ovrin::testing
