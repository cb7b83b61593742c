// SPDX-License-Identifier: MIT
#include "ui/screen_space.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace pimloft {

namespace {

TEST(ScreenSpace, countsFromThePrimaryScreensBottomLeft) {
    const ScreenSpace space({{QRect(0, 0, 1600, 1000), 1}});
    EXPECT_EQ(space.toDesktop(QRect(1500, 0, 22, 24)), QRectF(1500, 976, 22, 24));
    EXPECT_EQ(space.toQt(QPointF(1500, 1000))->position, QPointF(1500, 0));
}

TEST(ScreenSpace, aScreenLeftOfThePrimaryHasNegativePoints) {
    const ScreenSpace space({{QRect(1200, 0, 1600, 1000), 1}, {QRect(0, 100, 1200, 900), 1}});
    EXPECT_EQ(space.toDesktop(QRect(0, 100, 10, 10)), QRectF(-1200, 890, 10, 10));
    const auto place = space.toQt(QPointF(-1200, 900));
    EXPECT_EQ(place->screen, 1U);
    EXPECT_EQ(place->position, QPointF(0, 100));
}

TEST(ScreenSpace, withAScaleOnlyDistancesOnAScreenAreScaled) {
    // Two monitors of 2560 by 1600 pixels side by side at scale 2: Qt keeps the second one's origin at 2560.
    const ScreenSpace space({{QRect(0, 0, 1280, 800), 2}, {QRect(2560, 0, 1280, 800), 2}});
    EXPECT_EQ(space.toDesktop(QRect(2570, 20, 22, 22)), QRectF(1290, 758, 22, 22));
    const auto place = space.toQt(QPointF(1290, 780));
    EXPECT_EQ(place->screen, 1U);
    EXPECT_EQ(place->position, QPointF(2570, 20));
}

TEST(ScreenSpace, theWayBackEndsWhereItBegan) {
    const ScreenSpace space({{QRect(2560, 0, 1280, 800), 2}, {QRect(0, 0, 1280, 800), 2}});
    for (const QPoint point : {QPoint(2600, 30), QPoint(3800, 790), QPoint(5, 5), QPoint(1200, 700)}) {
        const QRectF desktop = space.toDesktop(QRect(point, QSize(1, 1)));
        EXPECT_EQ(space.toQt(QPointF(desktop.left(), desktop.y() + desktop.height()))->position,
                  QPointF(point));
    }
}

TEST(ScreenSpace, withoutAScreenThereIsNoPlace) {
    const ScreenSpace space({});
    EXPECT_TRUE(space.toDesktop(QRect(1, 2, 3, 4)).isNull());
    EXPECT_FALSE(space.toQt(QPointF(1, 2)));
}

}  // namespace
}  // namespace pimloft
