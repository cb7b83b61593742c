// SPDX-License-Identifier: MIT
#include "app/ax_window_helper.h"

#include "platform/fake_desktop.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Windows : testing::Test {
    FakeDesktop desktop;
    AXWindowHelper helper{desktop.windows, desktop.displays};
};

TEST_F(Windows, rectanglesAreMirroredAtThePrimaryDisplaysHeight) {
    desktop.displays.add(DisplayId(1), {0, 0, 1920, 1080});
    EXPECT_EQ(helper.convertToAXCoordinates({0, 540, 960, 540}), QRectF(0, 0, 960, 540));
    EXPECT_EQ(helper.convertToAXCoordinates({960, 0, 960, 540}), QRectF(960, 540, 960, 540));
}

TEST_F(Windows, aDisplayLeftOfThePrimaryKeepsItsNegativeX) {
    desktop.displays.add(DisplayId(1), {0, 0, 1920, 1080});
    desktop.displays.add(DisplayId(2), {-1280, 0, 1280, 1024});
    EXPECT_EQ(helper.convertToAXCoordinates({-1280, 0, 640, 1024}), QRectF(-1280, 56, 640, 1024));
}

TEST_F(Windows, thePrimaryDisplayCountsWhicheverDisplayTheRectangleIsOn) {
    desktop.displays.add(DisplayId(1), {0, 0, 1000, 500});
    desktop.displays.add(DisplayId(2), {0, 500, 1000, 2000});
    EXPECT_EQ(helper.convertToAXCoordinates({0, 500, 1000, 2000}), QRectF(0, -2000, 1000, 2000));
}

TEST_F(Windows, withoutADisplayRectanglesStayAsTheyAre) {
    EXPECT_EQ(helper.convertToAXCoordinates({1, 2, 3, 4}), QRectF(1, 2, 3, 4));
}

TEST_F(Windows, aFrameIsSetInDesktopPointsAndReadInAccessibilityPoints) {
    desktop.displays.add(DisplayId(1), {0, 0, 1920, 1080});
    desktop.windows.open(QStringLiteral("Editor"), ProcessId(7), {300, 200, 800, 600});
    const auto window = helper.focusedWindow();
    ASSERT_TRUE(window);
    EXPECT_EQ(helper.getPosition(*window), QPointF(300, 200));
    EXPECT_EQ(helper.getSize(*window), QSizeF(800, 600));
    EXPECT_EQ(helper.processId(*window), ProcessId(7));
    EXPECT_TRUE(helper.setFrame(*window, {0, 540, 960, 540}));
    EXPECT_EQ(desktop.log(), "place Editor at (0, 0) 960 x 540\n");
    EXPECT_EQ(helper.getPosition(*window), QPointF(0, 0));
}

TEST_F(Windows, settingTheFrameOfAClosedWindowAnswersTrueAndDoesNothing) {
    auto &editor = desktop.windows.open(QStringLiteral("Editor"), ProcessId(7), {300, 200, 800, 600});
    const auto window = helper.focusedWindow();
    ASSERT_TRUE(window);
    editor.gone = true;
    EXPECT_TRUE(helper.setFrame(*window, {0, 0, 100, 100}));
    EXPECT_EQ(helper.getPosition(*window), std::nullopt);
    EXPECT_EQ(helper.getSize(*window), std::nullopt);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Windows, withoutThePermissionThereIsNoFocusedWindow) {
    desktop.windows.open(QStringLiteral("Editor"), ProcessId(7), {300, 200, 800, 600});
    desktop.windows.trusted = false;
    EXPECT_EQ(helper.focusedWindow(), std::nullopt);
}

}  // namespace
}  // namespace pimloft
