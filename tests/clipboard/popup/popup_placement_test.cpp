// SPDX-License-Identifier: MIT
#include "clipboard/popup_placement.h"

#include "platform/displays/displays.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr QSizeF size(340, 420);

struct PlacementCase {
    const char *name;
    QPointF pointer;
    QRectF visible;
    QPointF origin;
};

class PopupPlacement : public testing::TestWithParam<PlacementCase> {};

TEST_P(PopupPlacement, nearThePointer) {
    const PlacementCase &c = GetParam();
    EXPECT_EQ(frameNearCursor(size, c.pointer, c.visible), QRectF(c.origin, size));
}

const QRectF screen(0, 0, 1440, 900);

INSTANTIATE_TEST_SUITE_P(
    Popup, PopupPlacement,
    testing::Values(
        PlacementCase{"isCentredOnIt", {700, 500}, screen, {530, 290}},
        PlacementCase{"staysInTheBottomRightCorner", {1440, 0}, screen, {1092, 8}},
        PlacementCase{"staysInTheTopLeftCorner", {0, 900}, screen, {8, 472}},
        PlacementCase{"staysInTheTopRightCorner", {1440, 900}, screen, {1092, 472}},
        PlacementCase{"staysInTheBottomLeftCorner", {0, 0}, screen, {8, 8}},
        PlacementCase{"leavesBarsFree", {0, 0}, {60, 40, 1380, 836}, {68, 48}},
        PlacementCase{"onAScreenLeftOfThePrimaryOne", {-800, 400}, {-1280, 0, 1280, 800}, {-970, 190}},
        PlacementCase{"keepsItsLowerEdgeInAScreenTooLow", {700, 200}, {0, 0, 1440, 400}, {530, 8}},
        PlacementCase{"keepsItsLeftEdgeInAScreenTooNarrow", {100, 450}, {0, 0, 300, 900}, {8, 240}}),
    [](const auto &info) { return info.param.name; });

const Display left{DisplayId(1), {0, 0, 1000, 800}, {0, 0, 1000, 760}};
const Display right{DisplayId(2), {1000, 0, 1000, 800}, {1000, 0, 1000, 760}};

TEST(PopupDisplay, isTheOneUnderThePointer) {
    EXPECT_EQ(displayUnder({1500, 400}, {left, right}, left), right);
    EXPECT_EQ(displayUnder({500, 790}, {left, right}, right), left) << "the bar belongs to it";
}

TEST(PopupDisplay, isTheFirstWhereTwoMeet) {
    EXPECT_EQ(displayUnder({1000, 400}, {left, right}, right), left);
}

TEST(PopupDisplay, isTheMainOneForAPointerOnNone) {
    EXPECT_EQ(displayUnder({500, -400}, {left, right}, right), right);
    EXPECT_FALSE(displayUnder({500, -400}, {}, std::nullopt));
}

}  // namespace
}  // namespace pimloft
