#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <optional>

/// Photos that Ovrin itself has encoded: decoding, encoding, average colour. Needs neither an application
/// object nor a display. Pictures from outside are not decoded here but in the document reader's own process.
namespace ovrin::ImageProcessing {

/// Longer side, in pixels, of every photo that is stored.
inline constexpr int maximumPhotoSide = 1600;

/// JPEG quality of every photo that is stored, 0.85 on a scale from 0 to 1.
inline constexpr int photoQuality = 85;

/// `size` scaled down until its longer side is at most `maxPixelSize`; both sides are cut down to whole
/// pixels and stay at least 1. A size within the limit comes back unchanged.
QSize bounded(QSize size, int maxPixelSize);

/// The picture in `jpeg`, upright, in sRGB, its longer side at most `maxPixelSize`. Nothing when the bytes
/// are not a JPEG, are damaged, or claim more than 100 million pixels.
std::optional<QImage> decoded(const QByteArray& jpeg, int maxPixelSize);

/// `image` as sRGB JPEG of quality 0.85, scaled down when a limit is given and its longer side exceeds it;
/// transparency becomes white. Nothing when the image is null or cannot be encoded.
std::optional<QByteArray> jpegData(const QImage& image, std::optional<int> maxPixelSize = maximumPhotoSide);

/// The mean of all pixels in sRGB as six upper-case hexadecimal digits, "FFFFFF" for white; transparency
/// counts as white. Nothing for a null image.
std::optional<QString> averageColorHex(const QImage& image);

/// The same for an encoded photo; one larger than `maximumPhotoSide` is scaled down first.
std::optional<QString> averageColorHex(const QByteArray& jpeg);

} // namespace ovrin::ImageProcessing
