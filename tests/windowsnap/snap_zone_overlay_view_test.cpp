// SPDX-License-Identifier: MIT
#include "windowsnap/snap_zone_overlay_view.h"

#include "platform/panels/fake_panels.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr int width = 60;
constexpr int height = 40;

QImage painted(bool blends) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    SnapZoneOverlayView::paint(painter, image.size(), blends);
    return image;
}

bool isBlue(const QColor &color) {
    return color.blueF() > 0.95f && color.blueF() > color.greenF() && color.redF() < 0.1f;
}

TEST(SnapZoneOverlayView, isFilledWithFaintBlue) {
    const QColor middle = painted(true).pixelColor(width / 2, height / 2);
    EXPECT_NEAR(middle.alphaF(), 0.15, 0.01);
    EXPECT_TRUE(isBlue(middle)) << middle.name().toStdString();
}

TEST(SnapZoneOverlayView, hasAStrongerBlueLineOfTwoPointsInsideOfItsWindow) {
    const QImage image = painted(true);
    for (const QPoint outermost :
         {QPoint(30, 0), QPoint(30, height - 1), QPoint(0, 20), QPoint(width - 1, 20)}) {
        const QColor line = image.pixelColor(outermost);
        EXPECT_NEAR(line.alphaF(), 0.4, 0.01) << "nothing of the line may be cut off";
        EXPECT_TRUE(isBlue(line)) << line.name().toStdString();
    }
    // The inner half of the line lies on the filling.
    EXPECT_NEAR(image.pixelColor(30, 1).alphaF(), 1 - 0.6 * 0.85, 0.01);
    EXPECT_NEAR(image.pixelColor(30, 2).alphaF(), 0.15, 0.01);
}

TEST(SnapZoneOverlayView, hasRoundCorners) {
    const QImage image = painted(true);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(2, 2).alpha(), 0);
    EXPECT_EQ(image.pixelColor(width - 1, height - 1).alpha(), 0);
    EXPECT_GT(image.pixelColor(4, 4).alpha(), 0);
    EXPECT_NEAR(image.pixelColor(12, 0).alphaF(), 0.4, 0.01) << "the straight part begins after the corner";
}

TEST(SnapZoneOverlayView, withoutBlendingIsAnOpaqueOutlineWithSquareCorners) {
    const QImage image = painted(false);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool onOutline = x < 4 || y < 4 || x >= width - 4 || y >= height - 4;
            const QColor color = image.pixelColor(x, y);
            ASSERT_EQ(color.alpha(), onOutline ? 255 : 0) << "at " << x << ", " << y;
            ASSERT_TRUE(!onOutline || isBlue(color)) << "at " << x << ", " << y;
        }
}

TEST(SnapZoneOverlayView, asksForAWindowThatCanBeTranslucent) {
    FakeLog log;
    FakePanels panels(log);
    SnapZoneOverlayView view(panels);
    EXPECT_EQ(view.format().alphaBufferSize(), 8);
    EXPECT_FALSE(view.handle()) << "the panel decides what kind of window it becomes";
}

TEST(SnapZoneOverlayView, paintsItsWindowAsTheDesktopNeedsIt) {
    FakeLog log;
    FakePanels panels(log);
    panels.blending = false;
    SnapZoneOverlayView view(panels);
    view.resize(width, height);
    view.show();
    QCoreApplication::processEvents();
    const QImage image = view.screen()->grabWindow(view.winId()).toImage();
    ASSERT_EQ(image.size(), QSize(width, height));
    EXPECT_TRUE(isBlue(image.pixelColor(1, 1))) << "square corners, since windows do not blend";
    EXPECT_FALSE(isBlue(image.pixelColor(width / 2, height / 2)));
}

}  // namespace
}  // namespace pimloft
