#include "ui/images/PhotoShape.h"

#include <gtest/gtest.h>

using namespace ovrin;

namespace {

TEST(PhotoShape, aPlaceholderIsRoundedSmoothly)
{
    const QImage image = placeholder(QColor(200, 60, 40), QColor(90, 20, 10), {{200, 150}, 14});
    ASSERT_EQ(image.size(), QSize(200, 150));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(100, 1).alpha(), 255);
    int soft = 0;
    for (int y = 0; y < 14; ++y)
        for (int x = 0; x < 14; ++x)
            soft += image.pixelColor(x, y).alpha() % 255 != 0 ? 1 : 0;
    EXPECT_GT(soft, 8);
    EXPECT_GT(image.pixelColor(100, 1).red(), image.pixelColor(100, 148).red() + 80);
}

TEST(PhotoShape, whatIsNoPhotoHasNoShape)
{
    EXPECT_TRUE(shapedPhoto("no picture", {{200, 150}, 14}).isNull());
    EXPECT_TRUE(shapedPhoto({}, {{200, 150}, 14}).isNull());
    EXPECT_EQ(placeholder(Qt::red, Qt::blue, {}).size(), QSize(1, 1));
}

} // namespace
