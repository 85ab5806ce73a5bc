#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the application and the notifier say to each other, over a stream socket in the notifier's folder:
/// lines of UTF-8 ended by a line feed, fields parted by tabs; no field holds a control character.
///
/// To the notifier:
/// - `hello BUS-ADDRESS STOP-LABEL SHOW-LABEL`: the session's bus (may be empty) and the actions' texts.
/// - `at ID END FLAGS TITLE BODY`: END in nanoseconds of CLOCK_BOOTTIME; FLAGS as `Timer` has them.
/// - `cancel ID`
///
/// From the notifier:
/// - `taken ID`: the request is in the journal and survives the application.
/// - `over ID`: the note was shown, or the timer cancelled; nothing is left to do.
/// - `chosen ID ACTION`: ACTION is "stop" or "show".
namespace ovrin::notifier {

inline constexpr std::string_view socketName = "notifier.socket";
inline constexpr std::string_view lockName = "notifier.lock";
inline constexpr std::string_view journalName = "timers";

/// A longer line is a fault of the other side.
inline constexpr std::size_t longestLine = 16'384;

/// The fields of a line without its line feed; at least one, possibly empty. They point into `line`.
std::vector<std::string_view> fields(std::string_view line);

/// A line with its line feed; control characters in a field become spaces.
std::string line(std::initializer_list<std::string_view> fields);

} // namespace ovrin::notifier
