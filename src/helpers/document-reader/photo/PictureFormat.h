#pragma once

#include <QtCore/QByteArrayView>

#include <optional>

namespace ovrin::documentreader {

enum class PictureFormat { Jpeg, Png, WebP, Tiff, Gif, Heif };

/// The format that the first bytes announce; a name or a declared type counts for nothing. HEIC and AVIF are
/// both `Heif`. Nothing for everything else: text, HTML, SVG, PDF and the many formats that nobody has asked
/// for.
std::optional<PictureFormat> pictureFormat(QByteArrayView bytes);

} // namespace ovrin::documentreader
