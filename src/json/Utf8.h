#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string_view>

namespace ovrin {

/// `bytes` with every maximal ill-formed subsequence replaced by one U+FFFD (Unicode 15, section 3.9, the
/// practice of web browsers). Well-formed bytes come back as a view of the very same memory.
///
/// No replacement swallows an ASCII byte: cutting a text at ASCII characters and repairing the pieces gives
/// the same as repairing it whole.
QByteArray repairedUtf8(std::string_view bytes);

/// The character at `at`, which moves on behind it; U+FFFD for an ill-formed subsequence. `at` must be in
/// range.
char32_t decodeUtf8(std::string_view bytes, size_t& at);

/// Text of well-formed bytes. Unlike QString::fromUtf8 this keeps a byte order mark, and is never null.
QString stringFromUtf8(std::string_view bytes);

} // namespace ovrin
