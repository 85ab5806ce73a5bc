#pragma once

#include "model/Instant.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ovrin {

/// What was saved of a damaged library.
struct Rescued
{
    qsizetype recipes = 0;
    /// Name of the damaged file, now beside the library.
    QString keptAs;
};

/// Copies what can be read of the damaged `Library.sqlite` in `folder` into a new one that takes its place;
/// the damaged one is renamed. Until the new one is whole and on the disk the old one is left alone. Throws
/// LibraryError where the new one cannot be written.
Rescued rescueLibrary(const QString& folder, const QByteArray& vfs, Instant now);

/// Puts a rescued library in its place that an earlier start had no time to; gives the damaged file's new
/// name.
QString finishRescue(const QString& folder, Instant now);

} // namespace ovrin
