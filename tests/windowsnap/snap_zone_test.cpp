// SPDX-License-Identifier: MIT
#include "windowsnap/snap_zone.h"

#include "platform/displays/displays.h"
#include "platform/fake_log.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <vector>

namespace pimloft {

void PrintTo(SnapZone zone, std::ostream *out) {
    static constexpr std::array names{"left",     "right",      "top",        "topLeft",
                                      "topRight", "bottomLeft", "bottomRight"};
    *out << names.at(std::size_t(zone));
}

namespace {

constexpr std::nullopt_t none = std::nullopt;

Display display(std::uint32_t id, const QRectF &frame) {
    return {DisplayId(id), frame, frame};
}

/// 1920 x 1080 with its bottom-left corner at the origin.
const Display primary = display(1, {0, 0, 1920, 1080});

std::optional<SnapZone> detectAmong(QPointF cursor, std::vector<Display> displays, double sensitivity = 10) {
    return detect(cursor, displays.front(), sensitivity, displays);
}

struct Detection {
    const char *name;
    QPointF cursor;
    std::optional<SnapZone> zone;
};

void PrintTo(const Detection &detection, std::ostream *out) {
    *out << detection.name;
}

class OneDisplay : public testing::TestWithParam<Detection> {};

TEST_P(OneDisplay, selectsTheZone) {
    EXPECT_EQ(detectAmong(GetParam().cursor, {primary}), GetParam().zone);
}

const std::vector<Detection> detections{
    {"middle", {960, 540}, none},
    {"leftBandsLastPoint", {10, 540}, SnapZone::left},
    {"justBesideTheLeftBand", {10.0001, 540}, none},
    {"rightBandsLastPoint", {1910, 540}, SnapZone::right},
    {"justBesideTheRightBand", {1909.9999, 540}, none},
    {"topBandsLastPoint", {960, 1070}, SnapZone::top},
    {"justBelowTheTopBand", {960, 1069.9999}, none},
    {"bottomBandAlone", {960, 0}, none},
    {"bottomBandsLastPointInTheLeftBand", {10, 10}, SnapZone::bottomLeft},
    {"justAboveTheBottomBandInTheLeftBand", {10, 10.0001}, SnapZone::left},
    {"topLeftCorner", {0, 1080}, SnapZone::topLeft},
    {"topLeftSquaresInnerCorner", {10, 1070}, SnapZone::topLeft},
    {"rightOfTheTopLeftSquare", {10.0001, 1070}, SnapZone::top},
    {"belowTheTopLeftSquare", {10, 1069.9999}, SnapZone::left},
    {"topRightCorner", {1919, 1080}, SnapZone::topRight},
    {"bottomLeftCorner", {0, 1}, SnapZone::bottomLeft},
    {"bottomRightCorner", {1919, 1}, SnapZone::bottomRight},
    {"outsideOnTheLeft", {-50, 540}, SnapZone::left},
};

INSTANTIATE_TEST_SUITE_P(SnapZone, OneDisplay, testing::ValuesIn(detections),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(SnapZone, aWiderBandReachesFurther) {
    EXPECT_EQ(detectAmong({30, 540}, {primary}, 30), SnapZone::left);
    EXPECT_EQ(detectAmong({30, 540}, {primary}, 29), none);
}

TEST(SnapZone, onADisplayNarrowerThanTwoBandsLeftWinsOverRight) {
    EXPECT_EQ(detectAmong({8, 500}, {display(1, {0, 0, 15, 1000})}), SnapZone::left);
    EXPECT_EQ(detectAmong({8, 995}, {display(1, {0, 0, 15, 1000})}), SnapZone::topLeft);
}

TEST(SnapZone, onADisplayLowerThanTwoBandsTheTopCornersWinOverTheBottomOnes) {
    EXPECT_EQ(detectAmong({5, 8}, {display(1, {0, 0, 1000, 15})}), SnapZone::topLeft);
    EXPECT_EQ(detectAmong({995, 8}, {display(1, {0, 0, 1000, 15})}), SnapZone::topRight);
}

TEST(SnapZone, aDisplayOnTheRightDisablesTheRightEdgeAndItsCornersOnly) {
    const std::vector both{primary, display(2, {1920, 0, 1280, 1024})};
    EXPECT_EQ(detectAmong({1919, 540}, both), none);
    EXPECT_EQ(detectAmong({1919, 1079}, both), none) << "the top-right corner";
    EXPECT_EQ(detectAmong({1919, 1}, both), none) << "the bottom-right corner";
    EXPECT_EQ(detectAmong({0, 540}, both), SnapZone::left);
    EXPECT_EQ(detectAmong({960, 1080}, both), SnapZone::top);
    EXPECT_EQ(detectAmong({0, 1080}, both), SnapZone::topLeft);
}

TEST(SnapZone, aDisplayOnTheRightLeavesTheBottomLeftCorner) {
    EXPECT_EQ(detectAmong({0, 1}, {primary, display(2, {1920, 0, 1280, 1024})}), SnapZone::bottomLeft);
}

TEST(SnapZone, aSharedEdgeIsDisabledAlongAllOfItsLength) {
    // The other display is only 100 points high, far from the cursor.
    EXPECT_EQ(detectAmong({1919, 1000}, {primary, display(2, {1920, 0, 100, 100})}), none);
}

TEST(SnapZone, eachEdgeCanBeShared) {
    EXPECT_EQ(detectAmong({0, 540}, {primary, display(2, {-1280, 0, 1280, 1024})}), none);
    EXPECT_EQ(detectAmong({1919, 540}, {primary, display(2, {1920, 0, 1280, 1024})}), none);
    EXPECT_EQ(detectAmong({960, 1080}, {primary, display(2, {0, 1080, 1280, 1024})}), none);
    // The bottom edge alone selects nothing anyway; in a corner its being shared shows.
    EXPECT_EQ(detectAmong({0, 1}, {primary, display(2, {0, -1024, 1280, 1024})}), none);
}

TEST(SnapZone, aGapOfLessThanTwoPointsStillSharesTheEdge) {
    EXPECT_EQ(detectAmong({1919, 540}, {primary, display(2, {1921.99, 0, 1280, 1024})}), none);
    EXPECT_EQ(detectAmong({1919, 540}, {primary, display(2, {1918.01, 0, 1280, 1024})}), none);
}

TEST(SnapZone, aGapOfTwoPointsSharesNoEdge) {
    EXPECT_EQ(detectAmong({1919, 540}, {primary, display(2, {1922, 0, 1280, 1024})}), SnapZone::right);
    EXPECT_EQ(detectAmong({1919, 540}, {primary, display(2, {1918, 0, 1280, 1024})}), SnapZone::right);
}

TEST(SnapZone, displaysThatMeetInACornerOnlyShareNoEdge) {
    const std::vector diagonal{primary, display(2, {1920, 1080, 1280, 1024})};
    EXPECT_EQ(detectAmong({1919, 1079}, diagonal), SnapZone::topRight);
    EXPECT_EQ(detectAmong({1919, 540}, diagonal), SnapZone::right);
    EXPECT_EQ(detectAmong({960, 1080}, diagonal), SnapZone::top);
    const std::vector otherDiagonal{primary, display(2, {-1280, -1024, 1280, 1024})};
    EXPECT_EQ(detectAmong({0, 1}, otherDiagonal), SnapZone::bottomLeft);
    EXPECT_EQ(detectAmong({0, 540}, otherDiagonal), SnapZone::left);
}

TEST(SnapZone, anyDisplayOfTheListCanShareTheEdge) {
    const std::vector three{primary, display(2, {-800, 0, 800, 600}), display(3, {1920, 0, 800, 600})};
    EXPECT_EQ(detectAmong({0, 540}, three), none);
    EXPECT_EQ(detectAmong({1919, 540}, three), none);
}

TEST(SnapZone, aDisplayThatMirrorsAnotherIsToldApartByItsIdentityNotByItsPlace) {
    EXPECT_EQ(detectAmong({0, 540}, {primary, display(2, primary.frame)}), SnapZone::left);
    // The same display twice in the list is not its own neighbour.
    Display moved = display(1, {1920, 0, 1280, 1024});
    EXPECT_EQ(detectAmong({1919, 540}, {primary, moved}), SnapZone::right);
}

TEST(SnapZone, isDetectedOnTheWholeDisplayNotOnItsVisiblePart) {
    Display withBar = primary;
    withBar.visibleFrame = {60, 0, 1860, 1050};
    EXPECT_EQ(detectAmong({65, 540}, {withBar}), none);
    EXPECT_EQ(detectAmong({5, 540}, {withBar}), SnapZone::left);
}

struct Target {
    SnapZone zone;
    const char *frame;
};

void PrintTo(const Target &target, std::ostream *out) {
    PrintTo(target.zone, out);
}

class TargetFrame : public testing::TestWithParam<Target> {};

TEST_P(TargetFrame, fillsItsPartOfTheVisibleArea) {
    const Display withBars{DisplayId(1), {0, 0, 1920, 1080}, {100, 40, 1820, 1001}};
    EXPECT_EQ(describe(targetFrame(GetParam().zone, withBars)).toStdString(), GetParam().frame);
}

INSTANTIATE_TEST_SUITE_P(SnapZone, TargetFrame,
                         testing::Values(Target{SnapZone::left, "(100, 40) 910 x 1001"},
                                         Target{SnapZone::right, "(1010, 40) 910 x 1001"},
                                         Target{SnapZone::top, "(100, 40) 1820 x 1001"},
                                         Target{SnapZone::topLeft, "(100, 540.5) 910 x 500.5"},
                                         Target{SnapZone::topRight, "(1010, 540.5) 910 x 500.5"},
                                         Target{SnapZone::bottomLeft, "(100, 40) 910 x 500.5"},
                                         Target{SnapZone::bottomRight, "(1010, 40) 910 x 500.5"}),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace pimloft
