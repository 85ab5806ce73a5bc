#include "helpers/document-reader/bitmap/BitmapPhoto.h"

#include "imaging/ImageProcessing.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>

namespace ovrin::documentreader {

namespace {

constexpr qint64 maximumPixels = 200'000'000;

} // namespace

std::optional<reader::PhotoAnswer> bitmapPhoto(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, QByteArrayLiteral("bmp"));
    reader.setAutoDetectImageFormat(false);
    const auto size = reader.size();
    if (size.isEmpty() || qint64{size.width()} * size.height() > maximumPixels) {
        return std::nullopt;
    }
    const auto image = reader.read();
    auto jpeg = ImageProcessing::jpegData(image);
    auto color = jpeg ? ImageProcessing::averageColorHex(*jpeg) : std::nullopt;
    if (!color) {
        return std::nullopt;
    }
    return reader::PhotoAnswer{std::move(*jpeg), std::move(*color)};
}

} // namespace ovrin::documentreader
