#include "helpers/document-reader/bitmap/BitmapPhoto.h"

#include "imaging/ImageProcessing.h"

#include <QtCore/QBuffer>
#include <QtCore/QSize>
#include <QtCore/QtEndian>
#include <QtGui/QImageReader>

namespace ovrin::documentreader {

namespace {

constexpr qint64 maximumPixels = 200'000'000;

/// Qt's reader leaves what is missing at the end black. The pixels of a bitmap have a size that its header
/// tells: their place (byte 10), then, after the size of the older or the newer header (byte 14), bits per
/// pixel, compression, and the size of pixels that are compressed.
bool isWhole(const QByteArray& bytes, QSize size)
{
    if (bytes.size() < 54) {
        return false;
    }
    const auto u16 = [&](int at) { return qFromLittleEndian<quint16>(bytes.constData() + at); };
    const auto u32 = [&](int at) { return qint64{qFromLittleEndian<quint32>(bytes.constData() + at)}; };
    const bool older = u32(14) == 12;
    const qint64 bitsPerPixel = older ? u16(24) : u16(28);
    const auto compression = older ? 0 : u32(30);
    const bool runLength = compression == 1 || compression == 2;
    const auto rowBytes = (bitsPerPixel * size.width() + 31) / 32 * 4;
    const auto pixelBytes = runLength ? u32(34) : rowBytes * size.height();
    return u32(10) + pixelBytes <= bytes.size();
}

} // namespace

std::optional<reader::PhotoAnswer> bitmapPhoto(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, QByteArrayLiteral("bmp"));
    reader.setAutoDetectImageFormat(false);
    const auto size = reader.size();
    if (size.isEmpty() || qint64{size.width()} * size.height() > maximumPixels || !isWhole(bytes, size)) {
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
