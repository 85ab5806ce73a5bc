#include "imaging/ImageProcessing.h"

#include <QtCore/QBuffer>
#include <QtGui/QColorSpace>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>
#include <QtGui/QPainter>

#include <algorithm>
#include <array>

namespace ovrin::ImageProcessing {

namespace {

constexpr qint64 maximumClaimedPixels = 100'000'000;

/// Opaque 32-bit sRGB, whatever came in. The tag is dropped: untagged means sRGB to every reader.
QImage flattened(QImage image)
{
    if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
        image.convertToColorSpace(QColorSpace::SRgb);
    }
    if (image.hasAlphaChannel()) {
        QImage canvas(image.size(), QImage::Format_RGB32);
        canvas.fill(Qt::white);
        image.setDevicePixelRatio(1);
        QPainter(&canvas).drawImage(0, 0, image);
        image = std::move(canvas);
    }
    image.convertTo(QImage::Format_RGB32);
    image.setColorSpace({});
    return image;
}

QImage scaledWithin(const QImage& image, int maxPixelSize)
{
    const auto size = bounded(image.size(), maxPixelSize);
    return size == image.size() ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QSize bounded(QSize size, int maxPixelSize)
{
    const auto longer = std::max(size.width(), size.height());
    if (longer <= maxPixelSize || maxPixelSize < 1) {
        return size;
    }
    const auto cut = [&](int side) {
        return std::max(1, static_cast<int>(qint64{side} * maxPixelSize / longer));
    };
    return {cut(size.width()), cut(size.height())};
}

std::optional<QImage> decoded(const QByteArray& jpeg, int maxPixelSize)
{
    QBuffer buffer;
    buffer.setData(jpeg);
    // The format is named, or a file of another kind would reach a decoder that nobody meant to run.
    QImageReader reader(&buffer, QByteArrayLiteral("jpeg"));
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const auto claimed = reader.size();
    if (claimed.isEmpty() || qint64{claimed.width()} * claimed.height() > maximumClaimedPixels) {
        return std::nullopt;
    }
    if (const auto size = bounded(claimed, maxPixelSize); size != claimed) {
        reader.setScaledSize(size);
    }
    auto image = reader.read();
    if (image.isNull()) {
        return std::nullopt;
    }
    return flattened(std::move(image));
}

std::optional<QByteArray> jpegData(const QImage& image, std::optional<int> maxPixelSize)
{
    if (image.isNull()) {
        return std::nullopt;
    }
    const auto flat = flattened(image);
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    QImageWriter writer(&buffer, QByteArrayLiteral("jpeg"));
    writer.setQuality(photoQuality);
    if (!writer.write(maxPixelSize ? scaledWithin(flat, *maxPixelSize) : flat)) {
        return std::nullopt;
    }
    return jpeg;
}

std::optional<QString> averageColorHex(const QImage& image)
{
    if (image.isNull()) {
        return std::nullopt;
    }
    const auto flat = flattened(image);
    std::array<quint64, 3> sum{};
    for (int y = 0; y < flat.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(flat.constScanLine(y));
        for (const auto* pixel = line; pixel != line + flat.width(); ++pixel) {
            sum[0] += static_cast<quint64>(qRed(*pixel));
            sum[1] += static_cast<quint64>(qGreen(*pixel));
            sum[2] += static_cast<quint64>(qBlue(*pixel));
        }
    }
    const auto count = static_cast<quint64>(flat.width()) * static_cast<quint64>(flat.height());
    const auto mean = [&](quint64 total) { return static_cast<int>((total + count / 2) / count); };
    return QString::asprintf("%02X%02X%02X", mean(sum[0]), mean(sum[1]), mean(sum[2]));
}

std::optional<QString> averageColorHex(const QByteArray& jpeg)
{
    const auto image = decoded(jpeg, maximumPhotoSide);
    return image ? averageColorHex(*image) : std::nullopt;
}

} // namespace ovrin::ImageProcessing
