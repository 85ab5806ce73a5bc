#include "platform/instance/WindowActivation.h"

#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace ovrin;

TEST(WindowActivation, bringsBackWhatWasClosedOrMinimised)
{
    QWindow window;
    window.show();
    window.close();
    // As the library window, while a cook window keeps the program running.
    bringForward(window, {});
    EXPECT_TRUE(window.isVisible());

    window.setWindowStates(Qt::WindowMaximized | Qt::WindowMinimized);
    bringForward(window, {});
    EXPECT_EQ(window.windowStates(), Qt::WindowMaximized) << "as large as it was";
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(WindowActivation, leavesTheTokenWhereTheWindowSystemTakesIt)
{
    QWindow window;
    window.show();
    bringForward(window, {"token", {}});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}
