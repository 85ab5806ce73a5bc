#pragma once

#include "reader/PhotoMessage.h"

namespace ovrin::documentreader {

/// A photo from the bytes of a JPEG, PNG, WebP, TIFF, GIF, HEIC or AVIF file: turned as its orientation says,
/// its colours converted to sRGB, on white where it was transparent, the first frame where it moved. Nothing
/// when the bytes are none of these, are damaged or cut short, or claim more than 200 million pixels.
std::optional<reader::PhotoAnswer> vipsPhoto(const QByteArray& bytes);

} // namespace ovrin::documentreader
