#include <QtGui/QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
