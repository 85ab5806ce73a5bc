#pragma once

#include <QtCore/QStringView>

#include <optional>

namespace ovrin {

namespace Duration {

/// An ISO 8601 duration of days and a time of day ("PT1H30M", "P1DT2H"), case-insensitive, in whole minutes.
/// Seconds are read over. Nothing when the text is anything else, surrounding blanks included, when the sum
/// is below one minute, and when an amount is not in ASCII digits or the sum is too large.
std::optional<qint64> minutes(QStringView text);

} // namespace Duration

} // namespace ovrin
