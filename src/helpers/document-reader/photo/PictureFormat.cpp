#include "helpers/document-reader/photo/PictureFormat.h"

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

#include <algorithm>
#include <array>

namespace ovrin::documentreader {

namespace {

/// ISO base media: the first box is "ftyp", and a brand for still images is its major or one of its
/// compatible ones.
bool isHeif(QByteArrayView bytes)
{
    if (bytes.size() < 16 || bytes.sliced(4, 4) != "ftyp") {
        return false;
    }
    constexpr std::array<QByteArrayView, 6> still{"heic", "heix", "heim", "heis", "mif1", "avif"};
    const auto isStill = [&](QByteArrayView brand) {
        return std::find(still.begin(), still.end(), brand) != still.end();
    };
    const auto box = std::min<qsizetype>(bytes.size(), qFromBigEndian<quint32>(bytes.data()));
    for (qsizetype at = 8; at + 4 <= box; at += 4) {
        // The four bytes after the major brand are its version.
        if (at != 12 && isStill(bytes.sliced(at, 4))) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<PictureFormat> pictureFormat(QByteArrayView bytes)
{
    const auto startsWith = [&](QByteArrayView magic) { return bytes.startsWith(magic); };
    if (startsWith("\xff\xd8\xff")) {
        return PictureFormat::Jpeg;
    }
    if (startsWith("\x89PNG\r\n\x1a\n")) {
        return PictureFormat::Png;
    }
    if (startsWith("RIFF") && bytes.size() >= 12 && bytes.sliced(8, 4) == "WEBP") {
        return PictureFormat::WebP;
    }
    if (startsWith("GIF87a") || startsWith("GIF89a")) {
        return PictureFormat::Gif;
    }
    // Little- and big-endian, and the variants with 64-bit offsets.
    if (startsWith(QByteArrayView("II*\0", 4)) || startsWith(QByteArrayView("MM\0*", 4)) ||
        startsWith(QByteArrayView("II+\0", 4)) || startsWith(QByteArrayView("MM\0+", 4))) {
        return PictureFormat::Tiff;
    }
    return isHeif(bytes) ? std::optional(PictureFormat::Heif) : std::nullopt;
}

} // namespace ovrin::documentreader
