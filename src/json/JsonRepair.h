#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>

namespace ovrin {

/// JSON that fails to be strict in small ways, made strict where that takes no guessing:
/// - a byte order mark, comments, and the marks of a comment or CDATA section around the text are left out,
/// - a comma before a closing bracket and commas or semicolons after the last value are left out,
/// - raw control characters in strings become spaces,
/// - a backslash before a character that needs none is dropped; one before `u` without four digits is taken
///   literally; half a surrogate pair becomes U+FFFD.
/// Linear in the length of `utf8`; the result may still not be JSON.
QByteArray repairedJson(QByteArrayView utf8);

} // namespace ovrin
