#pragma once

#include "reader/PhotoMessage.h"

namespace ovrin::documentreader {

/// A photo from the bytes of a BMP file. Nothing when they are not one, or one of more than 200 million
/// pixels.
std::optional<reader::PhotoAnswer> bitmapPhoto(const QByteArray& bytes);

} // namespace ovrin::documentreader
