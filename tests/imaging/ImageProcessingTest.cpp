#include "imaging/ImageProcessing.h"

#include <QtCore/QBuffer>
#include <QtGui/QColorSpace>
#include <QtGui/QImage>
#include <gtest/gtest.h>

namespace ovrin::ImageProcessing {
namespace {

QImage filled(QSize size, QColor color, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    image.fill(color);
    return image;
}

QByteArray encodedAs(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format, 95));
    return bytes;
}

TEST(ImageProcessing, CutsBothSidesDownToWholePixels)
{
    struct Case
    {
        QSize size;
        int limit;
        QSize expected;
    };
    for (const auto& [size, limit, expected] : {
             Case{{3000, 2000}, 1600, {1600, 1066}},
             Case{{2000, 3000}, 1600, {1066, 1600}},
             Case{{1600, 1600}, 1600, {1600, 1600}},
             Case{{1601, 1}, 1600, {1600, 1}},
             Case{{5000, 2}, 1600, {1600, 1}},
             Case{{20, 10}, 1600, {20, 10}},
             Case{{2000000000, 1999999999}, 1600, {1600, 1599}},
         }) {
        EXPECT_EQ(bounded(size, limit), expected) << size.width() << "x" << size.height();
    }
}

TEST(ImageProcessing, EncodesNoLargerThanTheLimit)
{
    const auto image = filled({3000, 2000}, Qt::darkGreen);
    const auto bounded = jpegData(image);
    ASSERT_TRUE(bounded);
    EXPECT_EQ(QImage::fromData(*bounded, "jpeg").size(), QSize(1600, 1066));
    EXPECT_EQ(QImage::fromData(jpegData(image, 100).value(), "jpeg").size(), QSize(100, 66));
    EXPECT_EQ(QImage::fromData(jpegData(image, std::nullopt).value(), "jpeg").size(), QSize(3000, 2000));
    EXPECT_FALSE(jpegData(QImage()));
}

TEST(ImageProcessing, ScalesByAveragingAndNotByPickingPixels)
{
    QImage stripes(3200, 16, QImage::Format_RGB32);
    for (int x = 0; x < stripes.width(); ++x) {
        for (int y = 0; y < stripes.height(); ++y) {
            stripes.setPixel(x, y, x % 2 == 0 ? 0xff000000 : 0xffffffff);
        }
    }
    const auto small = decoded(jpegData(stripes).value(), 1600).value();
    EXPECT_NEAR(qGreen(small.pixel(800, 4)), 127, 3);
    EXPECT_NEAR(qGreen(small.pixel(801, 4)), 127, 3);
}

TEST(ImageProcessing, ReadsItsOwnJpegAtTheWantedSize)
{
    const auto jpeg = jpegData(filled({1200, 900}, QColor(200, 100, 50))).value();
    EXPECT_EQ(decoded(jpeg, 1600).value().size(), QSize(1200, 900));
    const auto small = decoded(jpeg, 300).value();
    EXPECT_EQ(small.size(), QSize(300, 225));
    EXPECT_NEAR(qRed(small.pixel(150, 100)), 200, 2);
    EXPECT_NEAR(qBlue(small.pixel(150, 100)), 50, 2);
}

TEST(ImageProcessing, ReadsNothingButJpeg)
{
    const auto image = filled({8, 8}, Qt::red);
    const auto jpeg = encodedAs(image, "jpeg");
    EXPECT_TRUE(decoded(jpeg, 1600));
    EXPECT_FALSE(decoded(encodedAs(image, "png"), 1600));
    EXPECT_FALSE(decoded(encodedAs(image, "bmp"), 1600));
    EXPECT_FALSE(decoded(QByteArrayLiteral("<svg xmlns='http://www.w3.org/2000/svg'/>"), 1600));
    EXPECT_FALSE(decoded({}, 1600));
    EXPECT_FALSE(decoded(jpeg.first(20), 1600));
    // The frame header's height and width, raised to what no stored photo has.
    auto boastful = jpeg;
    const auto frame = boastful.indexOf(QByteArrayLiteral("\xff\xc0"));
    ASSERT_GT(frame, 0);
    boastful.replace(frame + 5, 4, QByteArrayLiteral("\xea\x60\xea\x60"));
    ASSERT_EQ(QImage::fromData(jpeg, "jpeg").size(), QSize(8, 8));
    EXPECT_FALSE(decoded(boastful, 1600));
}

TEST(ImageProcessing, AveragesAllPixels)
{
    EXPECT_EQ(averageColorHex(filled({3, 5}, Qt::white)), u"FFFFFF");
    EXPECT_EQ(averageColorHex(filled({3, 5}, Qt::black)), u"000000");
    EXPECT_EQ(averageColorHex(filled({64, 64}, QColor(1, 10, 171))), u"010AAB");
    EXPECT_EQ(averageColorHex(QImage()), std::nullopt);

    // One white column in four: a mean of 63.75, which any sampling of fewer pixels would miss.
    auto columns = filled({400, 3}, Qt::black);
    for (int x = 0; x < columns.width(); x += 4) {
        for (int y = 0; y < columns.height(); ++y) {
            columns.setPixel(x, y, 0xffffffff);
        }
    }
    EXPECT_EQ(averageColorHex(columns), u"404040");
}

TEST(ImageProcessing, AveragesInSrgbOnWhite)
{
    EXPECT_EQ(averageColorHex(filled({4, 4}, Qt::transparent, QImage::Format_ARGB32)), u"FFFFFF");
    EXPECT_EQ(averageColorHex(filled({4, 4}, QColor(90, 90, 90), QImage::Format_Grayscale8)), u"5A5A5A");
    auto wide = filled({4, 4}, QColor(0, 128, 0));
    wide.setColorSpace(QColorSpace::DisplayP3);
    const auto hex = averageColorHex(wide).value();
    EXPECT_EQ(hex.left(2), u"00");
    EXPECT_GT(hex.mid(2, 2).toInt(nullptr, 16), 128);
}

TEST(ImageProcessing, AveragesAnEncodedPhoto)
{
    EXPECT_EQ(averageColorHex(jpegData(filled({1600, 1200}, Qt::white)).value()), u"FFFFFF");
    EXPECT_EQ(averageColorHex(QByteArrayLiteral("no photo")), std::nullopt);
}

} // namespace
} // namespace ovrin::ImageProcessing
