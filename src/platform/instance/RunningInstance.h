#pragma once

#include "platform/instance/StartRequest.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

namespace ovrin {

/// This process as the one that shows its library: it owns the library's name on the session bus, and the
/// application's where that is free and ours to have, and takes what later starts ask for.
class RunningInstance : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        Taken,
        /// Another process shows this library.
        HeldByAnother,
        /// There is no bus, or it lets us own nothing: later starts will not find us.
        Alone,
    };

    explicit RunningInstance(const QDBusConnection& bus, QObject* parent = nullptr);
    ~RunningInstance() override;

    /// Takes the name of the library in `folder`. `isUsual` tells that it is the one which the desktop means
    /// when it asks for the application itself. From here on `requested` comes, once the event loop runs.
    Claim claim(const QString& folder, bool isUsual);

Q_SIGNALS:
    /// Whoever asked waits until this has been dealt with.
    void requested(const ovrin::StartRequest& request);

private:
    QDBusConnection m_bus;
    QStringList m_names;
};

} // namespace ovrin
