#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QStringList>

namespace ovrin {

/// A grocery list as an iCalendar file of tasks, for programs that read files rather than the task service.
/// Source: RFC 5545 (VTODO components, text escaping, lines folded at 75 octets).
namespace TaskCalendar {

/// One task a line of `items`, in order, each with `recipeTitle` as its description; `now` stamps them.
/// The same items, title and moment give the same bytes.
QByteArray write(const QStringList& items, const QString& recipeTitle, const QDateTime& now);

/// The same into a file, which is whole or as it was before. Whether it could be written.
bool save(const QString& path, const QStringList& items, const QString& recipeTitle, const QDateTime& now);

/// A name for such a file, which every file system takes.
QString fileName(const QString& recipeTitle);

} // namespace TaskCalendar

} // namespace ovrin
