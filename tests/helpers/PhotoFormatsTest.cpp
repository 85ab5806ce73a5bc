#include "helpers/Pictures.h"
#include "helpers/document-reader/Conversation.h"
#include "reader/PhotoMessage.h"

#include <QtGui/QColorSpace>
#include <QtGui/QImage>
#include <gtest/gtest.h>
#include <vips/vips.h>

#include <array>

namespace ovrin::documentreader {
namespace {

const QColor red(220, 30, 30);
const QColor green(30, 200, 30);
const QColor blue(30, 30, 220);
const QColor yellow(220, 220, 30);

struct Made
{
    QImage image;
    QString averageColorHex;
    QByteArray jpeg;
};

/// The whole way inside the reader: choice of the module, the module, the answer.
std::optional<Made> made(const QByteArray& bytes)
{
    const auto frame = answer({reader::MessageKind::Photo, bytes}, OVRIN_MODULES);
    const auto photo =
        frame.kind == reader::MessageKind::Photo ? reader::PhotoAnswer::decoded(frame.body) : std::nullopt;
    if (!photo) {
        return std::nullopt;
    }
    return Made{QImage::fromData(photo->jpeg, "jpeg"), photo->averageColorHex, photo->jpeg};
}

int difference(QColor a, QColor b)
{
    return std::max(
        {std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
}

/// The colour in the middle of a quarter: 0 and 1 above, 2 and 3 below.
QColor quarter(const QImage& image, int index)
{
    return image.pixelColor(image.width() * (1 + 2 * (index % 2)) / 4,
                            image.height() * (1 + 2 * (index / 2)) / 4);
}

void expectQuarters(const QByteArray& bytes, const std::string& what, int tolerance = 8)
{
    const auto photo = made(bytes);
    ASSERT_TRUE(photo) << what;
    EXPECT_EQ(photo->image.size(), pictures::quarteredSize) << what;
    EXPECT_LE(difference(quarter(photo->image, 0), red), tolerance) << what;
    EXPECT_LE(difference(quarter(photo->image, 1), green), tolerance) << what;
    EXPECT_LE(difference(quarter(photo->image, 2), blue), tolerance) << what;
    EXPECT_LE(difference(quarter(photo->image, 3), yellow), tolerance) << what;
    EXPECT_LE(difference(QColor(u'#' + photo->averageColorHex), QColor(125, 120, 78)), tolerance) << what;
}

QColor onlyColor(const QByteArray& bytes)
{
    const auto photo = made(bytes);
    EXPECT_TRUE(photo);
    if (!photo) {
        return {};
    }
    const auto middle = photo->image.pixelColor(photo->image.rect().center());
    EXPECT_LE(difference(QColor(u'#' + photo->averageColorHex), middle), 2);
    return middle;
}

TEST(PhotoFormats, AreAllRead)
{
    for (const auto* suffix :
         {".jpg[Q=95]", ".jpg[Q=95,interlace]", ".png", ".png[interlace]", ".png[palette]", ".webp[Q=95]",
          ".webp[lossless]", ".tif", ".tif[compression=lzw]", ".tif[compression=deflate,tile,pyramid]",
          ".tif[compression=jpeg,Q=95]", ".gif", ".heic[Q=95]", ".avif[Q=95]"}) {
        expectQuarters(pictures::quartered(suffix), suffix);
    }
    expectQuarters(pictures::bitmap(), "bmp");
}

TEST(PhotoFormats, AreTurnedUpright)
{
    // What stands at the top, from left to right, for each value of the orientation tag.
    const std::array<std::pair<QColor, QColor>, 8> above{{{red, green},
                                                          {green, red},
                                                          {yellow, blue},
                                                          {blue, yellow},
                                                          {red, blue},
                                                          {blue, red},
                                                          {yellow, green},
                                                          {green, yellow}}};
    for (const auto* suffix : {".jpg[Q=95]", ".tif", ".webp[Q=95]"}) {
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const auto photo = made(pictures::quartered(suffix, pictures::oriented(orientation)));
            ASSERT_TRUE(photo) << suffix << orientation;
            const auto size =
                orientation > 4 ? pictures::quarteredSize.transposed() : pictures::quarteredSize;
            EXPECT_EQ(photo->image.size(), size) << suffix << orientation;
            EXPECT_LE(difference(quarter(photo->image, 0), above.at(orientation - 1).first), 8)
                << suffix << orientation;
            EXPECT_LE(difference(quarter(photo->image, 1), above.at(orientation - 1).second), 8)
                << suffix << orientation;
        }
    }
}

TEST(PhotoFormats, AreNoLargerThanTheLimitAndNeverEnlarged)
{
    struct Case
    {
        QSize size;
        QSize expected;
    };
    for (const auto& [size, expected] :
         {Case{{3200, 1600}, {1600, 800}}, Case{{1200, 3600}, {533, 1600}}, Case{{1600, 1600}, {1600, 1600}},
          Case{{7, 5}, {7, 5}}, Case{{1, 1}, {1, 1}}, Case{{5000, 1}, {1600, 1}},
          Case{{2, 9000}, {1, 1600}}}) {
        for (const auto* suffix : {".jpg", ".png"}) {
            const auto photo = made(pictures::plain(suffix, size, {50, 100, 150}));
            ASSERT_TRUE(photo) << suffix << size.width();
            EXPECT_EQ(photo->image.size(), expected) << suffix << size.width();
        }
    }
}

TEST(PhotoFormats, KeepNothingButThePixels)
{
    const auto photo = made(pictures::quartered(".jpg", pictures::tagged("p3")));
    ASSERT_TRUE(photo);
    EXPECT_FALSE(photo->jpeg.contains("ICC_PROFILE"));
    EXPECT_FALSE(photo->jpeg.contains("Exif"));
}

TEST(PhotoColors, OfSixteenBitsAndOfGreyAreRight)
{
    expectQuarters(pictures::quartered(".png", pictures::sixteenBit()), "png, 16 bits");
    expectQuarters(pictures::quartered(".tif", pictures::sixteenBit()), "tiff, 16 bits");
    expectQuarters(pictures::quartered(".heic[Q=95,bitdepth=10]"), "heic, 10 bits");
    expectQuarters(pictures::quartered(".avif[Q=80,bitdepth=12]"), "avif, 12 bits");
    for (const auto* suffix : {".jpg", ".png", ".tif"}) {
        EXPECT_LE(difference(onlyColor(pictures::plain(suffix, {40, 30}, {90})), QColor(90, 90, 90)), 1)
            << suffix;
    }
    const auto grey16 = pictures::inColorSpace(VIPS_INTERPRETATION_GREY16);
    EXPECT_LE(difference(onlyColor(pictures::plain(".png", {40, 30}, {90}, grey16)), QColor(90, 90, 90)), 1);
}

TEST(PhotoColors, OfAWideGamutAreConverted)
{
    QImage wide(4, 4, QImage::Format_RGB32);
    wide.fill(QColor(200, 80, 60));
    wide.setColorSpace(QColorSpace::DisplayP3);
    wide.convertToColorSpace(QColorSpace::SRgb);
    const auto expected = wide.pixelColor(1, 1);
    ASSERT_GT(difference(expected, QColor(200, 80, 60)), 8);
    for (const auto* suffix : {".jpg[Q=95]", ".png", ".webp[lossless]", ".tif"}) {
        const auto bytes = pictures::plain(suffix, {40, 30}, {200, 80, 60}, pictures::tagged("p3"));
        EXPECT_LE(difference(onlyColor(bytes), expected), 4) << suffix;
    }
}

TEST(PhotoColors, OfPrintAreConverted)
{
    // From sRGB to inks and back costs a little colour.
    const auto inks = pictures::inColorSpace(VIPS_INTERPRETATION_CMYK);
    for (const auto* suffix : {".jpg[Q=95]", ".jpg[Q=95,strip]", ".tif"}) {
        EXPECT_LE(difference(onlyColor(pictures::plain(suffix, {40, 30}, {160, 120, 80}, inks)),
                             QColor(160, 120, 80)),
                  16)
            << suffix;
    }
}

TEST(PhotoColors, OfWhatIsTransparentLieOnWhite)
{
    for (const auto* suffix : {".png", ".webp[lossless]", ".tif"}) {
        const auto half = onlyColor(pictures::plain(suffix, {40, 30}, {200, 0, 0, 128}));
        EXPECT_LE(difference(half, QColor(227, 127, 127)), 3) << suffix;
        EXPECT_EQ(onlyColor(pictures::plain(suffix, {40, 30}, {0, 0, 0, 0})), QColor(Qt::white)) << suffix;
    }
    EXPECT_EQ(onlyColor(pictures::plain(".gif", {40, 30}, {0, 0, 0, 0})), QColor(Qt::white));
    const auto deep = pictures::plain(".png", {40, 30}, {200, 0, 0, 128}, pictures::sixteenBit());
    EXPECT_LE(difference(onlyColor(deep), QColor(227, 127, 127)), 3);
    EXPECT_EQ(onlyColor(pictures::plain(".png", {40, 30}, {0, 0})), QColor(Qt::white))
        << "grey and transparent";
}

TEST(PhotoColors, OfAnAnimationAreThoseOfItsFirstFrame)
{
    for (const auto* suffix : {".gif", ".webp[lossless]"}) {
        const auto photo = made(pictures::quartered(suffix, pictures::animated(150)));
        ASSERT_TRUE(photo) << suffix;
        EXPECT_EQ(photo->image.size(), QSize(400, 150)) << suffix;
        EXPECT_LE(difference(quarter(photo->image, 2), red), 8) << suffix;
        EXPECT_LE(difference(quarter(photo->image, 3), green), 8) << suffix;
    }
}

} // namespace
} // namespace ovrin::documentreader
