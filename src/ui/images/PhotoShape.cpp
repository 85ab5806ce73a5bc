#include "ui/images/PhotoShape.h"

#include "imaging/ImageProcessing.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace ovrin {

namespace {

/// A photo this small, scaled up smoothly, looks like the photo under frosted glass.
constexpr int blurredSide = 20;

/// The part of `photo` that has the proportions of `size`, from its middle.
QRect middle(const QSize& photo, const QSize& size)
{
    const QSize part = size.scaled(photo, Qt::KeepAspectRatio).expandedTo({1, 1});
    return {QPoint((photo.width() - part.width()) / 2, (photo.height() - part.height()) / 2), part};
}

/// The longer side to decode at, so that what is left after cutting is no smaller than `size`.
int decodeSide(const QByteArray& jpeg, const QSize& size)
{
    QBuffer buffer;
    buffer.setData(jpeg);
    const QSize photo = QImageReader(&buffer, "jpeg").size();
    if (photo.isEmpty())
        return ImageProcessing::maximumPhotoSide;
    // The stored photo may be turned a quarter by its own mark: the larger answer serves both ways.
    const QSize upright = photo.scaled(size, Qt::KeepAspectRatioByExpanding);
    const QSize turned = photo.transposed().scaled(size, Qt::KeepAspectRatioByExpanding);
    return std::max({upright.width(), upright.height(), turned.width(), turned.height()});
}

QImage rounded(const QImage& photo, int radius)
{
    QImage image(photo.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(photo);
    painter.drawRoundedRect(photo.rect(), radius, radius);
    return image;
}

} // namespace

QImage shapedPhoto(const QByteArray& jpeg, const PhotoShape& shape)
{
    // What cannot be a JPEG is not shown to its decoder, which complains aloud.
    if (shape.size.isEmpty() || !jpeg.startsWith("\xff\xd8"))
        return {};
    const int side = shape.isBlurred ? blurredSide * 4 : decodeSide(jpeg, shape.size);
    const auto decoded = ImageProcessing::decoded(jpeg, side);
    if (!decoded)
        return {};
    QImage photo = decoded->copy(middle(decoded->size(), shape.size));
    if (shape.isBlurred)
        photo = photo.scaled(photo.size().scaled(blurredSide, blurredSide, Qt::KeepAspectRatio),
                             Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    photo = photo.scaled(shape.size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return shape.radius > 0 ? rounded(photo, shape.radius) : photo;
}

} // namespace ovrin
