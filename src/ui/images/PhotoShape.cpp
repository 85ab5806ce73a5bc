#include "ui/images/PhotoShape.h"

#include "imaging/ImageProcessing.h"
#include "ui/images/SymbolProvider.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace ovrin {

namespace {

/// A photo this small, scaled up smoothly, looks like the photo under frosted glass.
constexpr int blurredSide = 20;
/// The theme's `photoFaint`: on a recipe's own colours it is the same in the light and in the dark.
constexpr QColor placeholderInk(255, 255, 255, 0x99);

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

QImage rounded(const QBrush& brush, const QSize& size, int radius)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(image.rect(), radius, radius);
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
    return shape.radius > 0 ? rounded(photo, photo.size(), shape.radius) : photo;
}

QImage placeholder(const QColor& first, const QColor& second, const PhotoShape& shape)
{
    const QSize size = shape.size.expandedTo({1, 1});
    QLinearGradient wash(0, 0, 0, size.height());
    wash.setColorAt(0, first);
    wash.setColorAt(1, second);
    QImage image = rounded(wash, size, shape.radius);
    const QImage symbol =
        SymbolProvider::symbol(QStringLiteral("fork.knife"), placeholderInk, size.height() * 27 / 100);
    QPainter(&image).drawImage((size.width() - symbol.width()) / 2, (size.height() - symbol.height()) / 2,
                               symbol);
    return image;
}

} // namespace ovrin
