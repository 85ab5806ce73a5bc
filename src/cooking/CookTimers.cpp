#include "cooking/CookTimers.h"

#include "cooking/TimerLink.h"
#include "model/StepsCoding.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ovrin {

namespace {

/// Keeps date arithmetic from overflowing.
constexpr qint64 longestSeconds = 100LL * 365 * 24 * 60 * 60;

/// Whole seconds, rounded up: a timer of five minutes starts at "5:00", and "0:00" is never shown.
QString countdown(qint64 milliseconds)
{
    const qint64 seconds = (milliseconds + 999) / 1000;
    const qint64 hours = seconds / 3600;
    const QString minutesAndSeconds = QStringLiteral("%1:%2")
                                          .arg(seconds / 60 % 60, hours > 0 ? 2 : 1, 10, QLatin1Char('0'))
                                          .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return hours > 0 ? QStringLiteral("%1:%2").arg(hours).arg(minutesAndSeconds) : minutesAndSeconds;
}

} // namespace

CookTimers::CookTimers(Clock clock, UserNotificationCenter& center, QObject* parent)
    : QAbstractListModel(parent)
    , m_clock(std::move(clock))
    , m_center(center)
    , m_now(m_clock())
{
    connect(&center, &UserNotificationCenter::actionChosen, this, &CookTimers::onActionChosen);
}

CookTimers::Running CookTimers::start(qint64 seconds, const QString& label, const QString& recipeTitle,
                                      const QUuid& recipeId)
{
    seconds = std::clamp<qint64>(seconds, 0, longestSeconds);
    refresh();
    Running timer{QUuid::createUuid(), label, recipeTitle, m_now.addSecs(seconds), recipeId};
    beginInsertRows({}, count(), count());
    m_timers.append(timer);
    endInsertRows();
    Q_EMIT countChanged();

    if (m_center.requestAuthorization()) {
        m_center.add({.id = uuidText(timer.id),
                      .title = QCoreApplication::translate("CookTimers", "Timer done"),
                      .body = QStringLiteral("%1 — %2").arg(label, recipeTitle),
                      .seconds = seconds});
    }
    return timer;
}

void CookTimers::cancel(const Running& timer)
{
    cancel(timer.id);
}

void CookTimers::cancel(const QUuid& id)
{
    const qsizetype row = rowOf(id);
    if (row < 0)
        return;
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
    m_timers.removeAt(row);
    endRemoveRows();
    Q_EMIT countChanged();
    m_center.remove(uuidText(id));
}

bool CookTimers::openLink(const QUrl& link, const QString& recipeTitle, const QUuid& recipeId)
{
    const auto request = TimerLink::parse(link);
    if (!request)
        return false;
    start(request->seconds, request->label, recipeTitle, recipeId);
    return true;
}

void CookTimers::refresh()
{
    const QDateTime before = std::exchange(m_now, m_clock());
    if (m_timers.isEmpty())
        return;
    Q_EMIT dataChanged(index(0), index(count() - 1), {TimeLeftRole, DoneRole});
    const auto hasJustRunOut = [&](const Running& timer) { return timer.end > before && timer.end <= m_now; };
    if (std::any_of(m_timers.cbegin(), m_timers.cend(), hasJustRunOut))
        Q_EMIT ranOut();
}

int CookTimers::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant CookTimers::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Running& timer = m_timers.at(index.row());
    switch (role) {
    case IdRole:
        return timer.id;
    case Qt::DisplayRole:
    case LabelRole:
        return timer.label;
    case RecipeTitleRole:
        return timer.recipeTitle;
    case TimeLeftRole:
        return timer.end > m_now ? countdown(m_now.msecsTo(timer.end)) : QString();
    case DoneRole:
        return timer.end <= m_now;
    default:
        return {};
    }
}

QHash<int, QByteArray> CookTimers::roleNames() const
{
    return {{IdRole, "timerId"},
            {LabelRole, "label"},
            {RecipeTitleRole, "recipeTitle"},
            {TimeLeftRole, "timeLeft"},
            {DoneRole, "done"}};
}

void CookTimers::onActionChosen(const QString& id, UserNotificationCenter::Action action)
{
    const qsizetype row = rowOf(QUuid::fromString(id));
    if (row < 0)
        return;
    switch (action) {
    case UserNotificationCenter::Action::StopTimer:
        cancel(m_timers.at(row).id);
        break;
    case UserNotificationCenter::Action::ShowRecipe:
        Q_EMIT recipeWanted(m_timers.at(row));
        break;
    }
}

qsizetype CookTimers::rowOf(const QUuid& id) const
{
    const auto found = std::find_if(m_timers.cbegin(), m_timers.cend(),
                                    [&](const Running& timer) { return timer.id == id; });
    return found == m_timers.cend() ? -1 : std::distance(m_timers.cbegin(), found);
}

} // namespace ovrin
