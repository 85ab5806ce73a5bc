#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ovrin {

/// A document on this machine, read whole and within bounds.
namespace DocumentFile {

/// The type that the extension of `path` stands for, where it is a PDF's or a picture's; otherwise empty.
QString mimeType(const QString& path);

/// The bytes of the file. Blocks while reading. Throws RecipeImportError: too large, also when it grows while
/// it is read, or unreadable, which a folder and a pipe are too.
QByteArray read(const QString& path);

} // namespace DocumentFile

} // namespace ovrin
