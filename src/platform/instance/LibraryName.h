#pragma once

#include <QtCore/QString>

namespace ovrin {

/// The name of the application on the bus, equal to that of its desktop entry.
inline const QString applicationName = QStringLiteral("org.ovrin.Ovrin");
/// Its object there.
inline const QString applicationPath = QStringLiteral("/org/ovrin/Ovrin");

/// The bus name of whoever shows the library in `folder`, whichever way the path is written. A start with one
/// library must never hand over to a window with another, not even where each was told its own data folder.
QString libraryName(const QString& folder);

} // namespace ovrin
