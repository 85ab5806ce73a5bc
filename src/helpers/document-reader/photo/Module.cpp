#include "helpers/document-reader/photo/VipsPhoto.h"

extern "C" bool ovrinAnswer(const QByteArray& body, QByteArray& answer)
{
    const auto photo = ovrin::documentreader::vipsPhoto(body);
    if (photo) {
        answer = photo->encoded();
    }
    return photo.has_value();
}
