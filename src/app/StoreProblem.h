#pragma once

#include <QtCore/QString>

#include <optional>

namespace ovrin {

/// Says in a window why the library in `folder` could not be opened, and waits. The folder that the user
/// would have the library of instead, or nothing. Needs an application; ends its event loop.
std::optional<QString> askForAnotherLibrary(const QString& folder, const QString& problem);

} // namespace ovrin
