#pragma once

#include <QtGui/QImage>

namespace ovrin {

/// How a photo is to be shown. Sizes in device pixels.
struct PhotoShape
{
    QSize size;
    int radius = 0;
    /// A soft wash of the photo's colours, for behind text.
    bool isBlurred = false;

    bool operator==(const PhotoShape&) const = default;
};

/// `jpeg` decoded, cut to fill `shape.size` around its middle, and rounded: on the CPU, because the software
/// renderer draws neither masks nor blurs. Null when it cannot be decoded.
QImage shapedPhoto(const QByteArray& jpeg, const PhotoShape& shape);

/// A wash from `first` above to `second` below, rounded, with a fork and knife in its middle.
QImage placeholder(const QColor& first, const QColor& second, const PhotoShape& shape);

} // namespace ovrin
