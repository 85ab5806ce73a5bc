#include "helpers/document-reader/bitmap/BitmapPhoto.h"

extern "C" bool ovrinAnswer(const QByteArray& body, QByteArray& answer)
{
    const auto photo = ovrin::documentreader::bitmapPhoto(body);
    if (photo) {
        answer = photo->encoded();
    }
    return photo.has_value();
}
