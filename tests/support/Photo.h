#pragma once

#include <QtCore/QBuffer>
#include <QtGui/QImage>

namespace ovrin {

/// A small picture, as a page's server sends it.
inline QByteArray photo()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(0xff8800);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace ovrin
