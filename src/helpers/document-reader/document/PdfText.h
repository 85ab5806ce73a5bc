#pragma once

#include "reader/DocumentMessage.h"

namespace ovrin::documentreader {

/// The text layer of the first pages of a PDF. Nothing when the bytes are none, or cannot be read without a
/// password. Links Poppler; runs in the cage only.
std::optional<reader::DocumentAnswer> pdfText(const QByteArray& bytes);

} // namespace ovrin::documentreader
