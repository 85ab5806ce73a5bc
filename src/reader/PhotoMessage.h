#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ovrin::reader {

/// The largest picture that is looked at, in bytes.
inline constexpr quint32 maximumPhotoBytes = 64 * 1024 * 1024;

/// The largest answer to a picture: more than any JPEG of 1600 x 1600 pixels needs.
inline constexpr quint32 maximumPhotoAnswerBytes = 16 * 1024 * 1024;

/// The answer to a picture: an upright sRGB JPEG of quality 0.85, its longer side at most 1600 pixels, and
/// its average colour as six upper-case hexadecimal digits.
struct PhotoAnswer
{
    QByteArray jpeg;
    QString averageColorHex;

    QByteArray encoded() const;
    /// Nothing when a field is missing, left over, or not of its form. That `jpeg` is one is not checked
    /// here.
    static std::optional<PhotoAnswer> decoded(const QByteArray& body);
};

} // namespace ovrin::reader
