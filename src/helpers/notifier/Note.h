#pragma once

#include "helpers/notifier/Bus.h"
#include "helpers/notifier/TimerBook.h"

#include <cstdint>
#include <string>
#include <vector>

/// The messages to and from the notification service.
/// Source: Desktop Notifications 1.2, freedesktop.org.
namespace ovrin::notifier {

inline constexpr const char* notificationService = "org.freedesktop.Notifications";

struct ServiceCapabilities
{
    bool takesMarkup = false;
    bool takesActions = false;
};

/// The texts of what the user can choose on a note.
struct ActionLabels
{
    std::string stop;
    std::string show;
};

Message capabilitiesQuestion();
ServiceCapabilities capabilitiesOf(DBusMessage* reply);

/// The note of a timer that has ended; `labels` is null for a note without actions.
Message noteOf(const Timer& timer, const ServiceCapabilities& capabilities, const ActionLabels* labels);
/// The service's number for the note; 0 when the reply holds none.
std::uint32_t noteNumberOf(DBusMessage* reply);
Message closingOf(std::uint32_t note);

} // namespace ovrin::notifier
