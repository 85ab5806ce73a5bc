#pragma once

#include "platform/instance/StartRequest.h"

#include <QtDBus/QDBusConnection>

#include <chrono>

namespace ovrin {

enum class HandOver {
    /// The running instance has done what was asked for.
    Done,
    /// There is none, or no bus to find it on.
    NobodyThere,
    /// There is one, which did not answer in time.
    NoAnswer,
};

/// Asks the instance that owns `name` on `bus` for `request`. Blocks for `limit` at most.
HandOver handOver(const QDBusConnection& bus, const QString& name, const StartRequest& request,
                  std::chrono::milliseconds limit = std::chrono::seconds(5));

} // namespace ovrin
