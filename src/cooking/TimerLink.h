#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace ovrin {

/// The link by which rendered directions ask for a timer:
/// "ovrin-timer://start?seconds=300&label=5%20minutes".
namespace TimerLink {

struct Request
{
    /// At least 1.
    qint64 seconds = 0;
    /// Never empty; any text, to be shown as text.
    QString label;

    bool operator==(const Request&) const = default;
};

/// What a timer is called that was given no label: "Timer".
QString defaultLabel();

QUrl url(qint64 seconds, const QString& label);

/// Nothing for any other scheme, and when "seconds" is missing, no decimal integer, or below 1. The host is
/// not looked at. Of an item that is given twice the first counts.
std::optional<Request> parse(const QUrl& link);

} // namespace TimerLink

} // namespace ovrin
