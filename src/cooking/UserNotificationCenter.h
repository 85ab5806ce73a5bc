#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

namespace ovrin {

/// Shows a note to the user at a later moment, whether or not the application still runs by then.
/// Main thread only. Nothing here reports an error: a note that cannot be shown is not.
class UserNotificationCenter : public QObject
{
    Q_OBJECT
public:
    struct Request
    {
        /// The caller's own; adding a request under the id of another that is pending replaces that one.
        QString id;
        QString title;
        /// Plain text, never markup.
        QString body;
        /// Elapsed time from now, time spent in suspension included. The note is shown once.
        qint64 seconds = 0;
    };

    /// How a note shows while the application is in front.
    struct Presentation
    {
        bool banner = false;
        bool sound = false;
    };

    class Delegate
    {
    public:
        virtual ~Delegate() = default;
        virtual Presentation presentation(const Request& request) const = 0;
    };

    /// What the user may choose on a note while the application runs.
    enum class Action {
        StopTimer,
        ShowRecipe,
    };
    Q_ENUM(Action)

    using QObject::QObject;
    ~UserNotificationCenter() override;

    /// Whether notes can be shown at all. Asked anew before every request.
    virtual bool requestAuthorization() = 0;
    /// Returns at once.
    virtual void add(const Request& request) = 0;
    /// A pending request is never shown; a note that is on the screen goes.
    virtual void remove(const QString& id) = 0;

    /// Not owned; null shows no banner while the application is in front.
    void setDelegate(const Delegate* delegate) { m_delegate = delegate; }

Q_SIGNALS:
    void actionChosen(const QString& id, ovrin::UserNotificationCenter::Action action);

protected:
    Presentation presentation(const Request& request) const;

private:
    const Delegate* m_delegate = nullptr;
};

/// For where no notes can be shown: the tray alone tells of timers.
class NullNotificationCenter final : public UserNotificationCenter
{
    Q_OBJECT
public:
    bool requestAuthorization() override { return false; }
    void add(const Request&) override {}
    void remove(const QString&) override {}
};

} // namespace ovrin
