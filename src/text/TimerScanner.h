#pragma once

#include <QtCore/QStringView>

#include <vector>

namespace ovrin {

/// Finds cooking times in directions: an amount (an integer, a decimal or ½), perhaps an upper bound after
/// "-", "–", "—" or "to", and a unit from seconds to hours, in any case.
namespace TimerScanner {

struct Timer
{
    /// UTF-16 units of the text, `end` exclusive.
    qsizetype start;
    qsizetype end;
    /// The lower bound, in whole seconds; at least 1.
    qint64 seconds;
};

/// From left to right, without overlap. What lasts less than a second, or longer than can be counted, or is
/// not in ASCII digits, is no timer.
std::vector<Timer> find(QStringView text);

} // namespace TimerScanner

} // namespace ovrin
