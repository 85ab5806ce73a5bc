#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QTimeZone>

#include <chrono>
#include <functional>

namespace ovrin {

/// A moment in UTC, to the microsecond: finer than QDateTime, so that the order of creation survives storing.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

/// Tells the time; handed in wherever time matters.
using Clock = std::function<Instant()>;

inline Instant systemNow()
{
    return std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now());
}

/// For showing only: the microseconds are lost.
inline QDateTime toDateTime(Instant instant)
{
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::floor<std::chrono::milliseconds>(instant).time_since_epoch().count(), Qt::UTC);
}

} // namespace ovrin
