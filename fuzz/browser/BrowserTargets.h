#pragma once

#include <QtCore/QByteArrayView>

namespace ovrin::fuzz {

/// The bytes as what a browser writes to the host: every message that they hold, as the host takes it.
void browserMessages(QByteArrayView data);

} // namespace ovrin::fuzz
