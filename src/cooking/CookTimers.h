#pragma once

#include "cooking/UserNotificationCenter.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QUrl>
#include <QtCore/QUuid>

#include <functional>

namespace ovrin {

/// The countdown timers of the whole application, in the order in which they were started, and the list model
/// that a tray shows. A timer leaves the list only when it is cancelled; one that has run out stays, done.
/// There is no pause, and nothing is kept beyond the process: the notes alone outlive it. Main thread only.
class CookTimers final : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    struct Running
    {
        /// Identity in lists; in upper case and without braces also the id of the timer's note.
        QUuid id;
        /// What the timer is for: the text of the tapped time.
        QString label;
        QString recipeTitle;
        /// By the wall clock, fixed at the start. The time left is computed from it and never stored.
        QDateTime end;
        /// Which recipe, since titles change and need not be unique; null when nobody said.
        QUuid recipeId = {};

        bool operator==(const Running&) const = default;
    };

    enum Role {
        IdRole = Qt::UserRole, ///< QUuid
        LabelRole,             ///< QString
        RecipeTitleRole,       ///< QString
        TimeLeftRole,          ///< QString, "9:41" or "1:09:41"; empty once done
        DoneRole,              ///< bool
    };

    /// Gives the wall-clock time.
    using Clock = std::function<QDateTime()>;

    /// `center` must outlive the timers.
    CookTimers(Clock clock, UserNotificationCenter& center, QObject* parent = nullptr);

    const QList<Running>& timers() const { return m_timers; }
    int count() const { return static_cast<int>(m_timers.size()); }

    /// Appends a timer and asks for its note. Anything beyond a hundred years counts as that.
    Running start(qint64 seconds, const QString& label, const QString& recipeTitle,
                  const QUuid& recipeId = {});
    /// Does nothing when there is no such timer (any more).
    void cancel(const Running& timer);
    Q_INVOKABLE void cancel(const QUuid& id);

    /// Starts the timer that `link` asks for; false, and nothing happens, when it is no such link.
    Q_INVOKABLE bool openLink(const QUrl& link, const QString& recipeTitle, const QUuid& recipeId = {});

    /// Brings the times left up to now. Who shows them calls this at least once a second.
    Q_INVOKABLE void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();
    /// Timers have run out since the last `refresh`, of which this is the sign.
    void ranOut();
    /// The user wants to see what `timer` is for.
    void recipeWanted(const ovrin::CookTimers::Running& timer);

private:
    void onActionChosen(const QString& id, UserNotificationCenter::Action action);
    qsizetype rowOf(const QUuid& id) const;

    Clock m_clock;
    UserNotificationCenter& m_center;
    QList<Running> m_timers;
    /// The moment that the rows show.
    QDateTime m_now;
};

} // namespace ovrin
