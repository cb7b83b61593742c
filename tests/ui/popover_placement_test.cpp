// SPDX-License-Identifier: MIT
#include "ui/popover_placement.h"

#include "platform/displays/displays.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace pimloft {

namespace {

constexpr QSizeF size(300, 400);

Display display(const QRectF &frame, const QRectF &visible) {
    return {DisplayId(1), frame, visible};
}

struct Case {
    const char *name;
    QRectF visible;
    QRectF anchor;
    QRectF expected;
};

class PopoverPlacement : public testing::TestWithParam<Case> {};

TEST_P(PopoverPlacement, onADisplayOf1600By1000) {
    const Case &c = GetParam();
    EXPECT_EQ(popoverFrame(size, c.anchor, display(QRectF(0, 0, 1600, 1000), c.visible)), c.expected);
}

const QRectF topBar(0, 0, 1600, 976);
const QRectF bottomBar(0, 24, 1600, 976);
const QRectF leftBar(40, 0, 1560, 1000);
const QRectF rightBar(0, 0, 1560, 1000);

INSTANTIATE_TEST_SUITE_P(
    Ui, PopoverPlacement,
    testing::Values(Case{"belowAnIconInATopBar", topBar, {800, 977, 22, 22}, {661, 570, 300, 400}},
                    Case{"withinTheRightEdge", topBar, {1570, 977, 22, 22}, {1294, 570, 300, 400}},
                    Case{"withinTheLeftEdge", topBar, {5, 977, 22, 22}, {6, 570, 300, 400}},
                    Case{"aboveAnIconInABottomBar", bottomBar, {800, 1, 22, 22}, {661, 30, 300, 400}},
                    Case{"besideAnIconInALeftBar", leftBar, {9, 700, 22, 22}, {46, 322, 300, 400}},
                    Case{"besideAnIconInARightBar", rightBar, {1569, 700, 22, 22}, {1254, 322, 300, 400}},
                    Case{"besideAndWithinTheBottomEdge", leftBar, {9, 10, 22, 22}, {46, 6, 300, 400}},
                    Case{"belowAPointerInTheMiddle", topBar, {800, 600, 1, 1}, {650.5, 194, 300, 400}},
                    Case{"withTheTopLeftCornerInViewWhenNothingElseFits",
                         {100, 700, 200, 250},
                         {150, 960, 22, 22},
                         {106, 544, 300, 400}}),
    [](const testing::TestParamInfo<Case> &info) { return std::string(info.param.name); });

TEST(PopoverPlacement, staysOnTheDisplayOfItsAnchor) {
    const QRectF left(-1200, 100, 1200, 900);
    EXPECT_EQ(popoverFrame(size, QRectF(-30, 975, 22, 22), display(left, left)), QRectF(-306, 569, 300, 400));
}

TEST(PopoverPlacement, aPointBelongsToItsDisplayElseToTheNearest) {
    const std::vector displays{Display{DisplayId(1), QRectF(0, 0, 1600, 1000), {}},
                               Display{DisplayId(2), QRectF(1600, 0, 800, 600), {}}};
    EXPECT_EQ(displayAt(QPointF(10, 10), displays), displays[0]);
    EXPECT_EQ(displayAt(QPointF(2000, 10), displays), displays[1]);
    EXPECT_EQ(displayAt(QPointF(2300, 900), displays), displays[1]) << "above the lower display";
    EXPECT_EQ(displayAt(QPointF(-50, -50), displays), displays[0]);
}

}  // namespace
}  // namespace pimloft
