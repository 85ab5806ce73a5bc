#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSize>

#include <functional>

struct _VipsImage;

/// Pictures made for a test, in every format that photos come in.
namespace ovrin::pictures {

/// The picture under test: its quarters red and green above, blue and yellow below.
inline constexpr QSize quarteredSize{400, 300};

/// What may be done to the picture before it is encoded: takes one and returns one, keeping nothing.
using Change = std::function<_VipsImage*(_VipsImage*)>;

/// The quartered picture, scaled up `enlarged` times, changed, and written by the saver for `suffix`
/// (".jpg[Q=90]").
QByteArray quartered(const char* suffix, const Change& change = {}, int enlarged = 1);

/// A small one with detail down to its last row, so that no part of its file can be spared.
inline constexpr QSize texturedSize{100, 76};
QByteArray textured(const char* suffix);

/// One colour all over; as many bands as `color` has values.
QByteArray plain(const char* suffix, QSize size, std::initializer_list<double> color,
                 const Change& change = {});

/// The changes that the tests need.
Change oriented(int exifOrientation);
Change sixteenBit();
Change inColorSpace(int interpretation);
/// Tagged with one of the library's own profiles, without converting the pixels.
Change tagged(const char* profile);
/// Cut into frames of `height` rows, as animations are.
Change animated(int height);

/// The quartered picture of this size as a BMP of 24 bits, or one that claims another size than it has.
QByteArray bitmap(QSize size = quarteredSize);
QByteArray bitmap(QSize size, QSize claimed);

/// A PNG, JPEG, GIF or TIFF whose header claims `size` and behind which there is next to nothing.
QByteArray claimingPng(QSize size);
QByteArray claimingJpeg(QSize size);
QByteArray claimingGif(QSize size);
QByteArray claimingTiff(QSize size);
/// The quartered picture as AVIF or HEIC, its spatial extents raised to `size`.
QByteArray claimingHeif(const char* suffix, QSize size);

} // namespace ovrin::pictures
