// SPDX-License-Identifier: MIT
#include "platform/x11/point_space.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr QRect atOrigin{0, 0, 1600, 1000};
constexpr QRect shifted{600, 200, 1000, 800};

TEST(PointSpace, desktopPointsCountUpwardsFromThePrimarysLowerEdge) {
    const PointSpace space{atOrigin, 1};
    EXPECT_EQ(space.toDesktop(QRect(0, 0, 800, 500)), QRectF(0, 500, 800, 500));
    EXPECT_EQ(space.desktopToNative({0, 500, 800, 500}), QRect(0, 0, 800, 500));
}

TEST(PointSpace, bothOriginsFollowThePrimary) {
    const PointSpace space{shifted, 1};
    EXPECT_EQ(space.toAccessibility(QPoint(0, 0)), QPointF(-600, -200));
    EXPECT_EQ(space.toDesktop(QRect(0, 0, 600, 1000)), QRectF(-600, 0, 600, 1000));
    EXPECT_EQ(space.toDesktop(QPoint(600, 1000)), QPointF(0, 0));
    EXPECT_EQ(space.accessibilityToNative({-600, -200, 600, 500}), QRect(0, 0, 600, 500));
}

TEST(PointSpace, aScaleDividesDistancesFromThePrimary) {
    const PointSpace space{shifted, 2};
    EXPECT_EQ(space.toAccessibility(QRect(600, 200, 500, 400)), QRectF(0, 0, 250, 200));
    EXPECT_EQ(space.toDesktop(QRect(600, 200, 500, 400)), QRectF(0, 200, 250, 200));
    EXPECT_EQ(space.desktopToNative({0, 200, 250, 200}), QRect(600, 200, 500, 400));
}

TEST(PointSpace, rectanglesThatTouchInPointsTouchInPixels) {
    const PointSpace space{QRect(0, 0, 1365, 767), 1};
    const QRect lower = space.desktopToNative({0, 0, 682.5, 383.5});
    const QRect upper = space.desktopToNative({682.5, 383.5, 682.5, 383.5});
    EXPECT_EQ(lower.x() + lower.width(), upper.x());
    EXPECT_EQ(upper.y() + upper.height(), lower.y());
    EXPECT_EQ(upper.x() + upper.width(), 1365);
    EXPECT_EQ(lower.y() + lower.height(), 767);
}

}  // namespace
}  // namespace pimloft
