// SPDX-License-Identifier: MIT
#include "windowsnap/snap_layout.h"

#include "platform/displays/displays.h"
#include "platform/fake_log.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

Display visible(const QRectF &area) {
    return {DisplayId(1), area.adjusted(-10, -20, 30, 40), area};
}

std::string summary(SnapLayout layout, const Display &screen) {
    QStringList lines;
    for (const QRectF &frame : frames(layout, screen))
        lines << describe(frame);
    return lines.join(QStringLiteral("; ")).toStdString();
}

struct Case {
    SnapLayout layout;
    const char *name;
    const char *frames;
};

class Layout : public testing::TestWithParam<Case> {};

TEST_P(Layout, dividesTheVisibleArea) {
    EXPECT_EQ(summary(GetParam().layout, visible({100, 40, 1200, 1000})), GetParam().frames);
}

INSTANTIATE_TEST_SUITE_P(
    SnapLayout, Layout,
    testing::Values(
        Case{SnapLayout::halfHalf, "halfHalf", "(100, 40) 600 x 1000; (700, 40) 600 x 1000"},
        Case{SnapLayout::sevenThree, "sevenThree", "(100, 40) 840 x 1000; (940, 40) 360 x 1000"},
        Case{SnapLayout::threeSeven, "threeSeven", "(100, 40) 360 x 1000; (460, 40) 840 x 1000"},
        Case{SnapLayout::thirds, "thirds",
             "(100, 40) 400 x 1000; (500, 40) 400 x 1000; (900, 40) 400 x 1000"},
        Case{SnapLayout::halfQuarters, "halfQuarters",
             "(100, 40) 600 x 1000; (700, 540) 600 x 500; (700, 40) 600 x 500"},
        Case{SnapLayout::quarters, "quarters",
             "(100, 540) 600 x 500; (700, 540) 600 x 500; (100, 40) 600 x 500; (700, 40) 600 x 500"}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(SnapLayout, hasSixCasesInTheOrderOfTheirRawValues) {
    ASSERT_EQ(allSnapLayouts.size(), 6u);
    for (int raw = 0; raw < 6; ++raw) {
        EXPECT_EQ(int(allSnapLayouts[std::size_t(raw)]), raw);
        EXPECT_EQ(snapLayout(raw), allSnapLayouts[std::size_t(raw)]);
    }
}

TEST(SnapLayout, otherRawValuesAreNoLayout) {
    EXPECT_EQ(snapLayout(-1), std::nullopt);
    EXPECT_EQ(snapLayout(6), std::nullopt);
}

TEST(SnapLayout, thirdsOf1440PointsAre480Each) {
    const auto places = frames(SnapLayout::thirds, visible({0, 0, 1440, 900}));
    ASSERT_EQ(places.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(places[std::size_t(i)].x(), 480 * i);
        EXPECT_EQ(places[std::size_t(i)].width(), 480);
    }
}

TEST(SnapLayout, theFirstQuarterIsTheTopLeftOne) {
    EXPECT_EQ(slotFractions(SnapLayout::quarters).front().y, 0.5);
}

TEST(SnapLayout, rectanglesAreNotRounded) {
    EXPECT_EQ(summary(SnapLayout::quarters, visible({0.5, 0.25, 101, 33})),
              "(0.5, 16.75) 50.5 x 16.5; (51, 16.75) 50.5 x 16.5; (0.5, 0.25) 50.5 x 16.5; "
              "(51, 0.25) 50.5 x 16.5");
}

TEST(SnapLayout, hasANameForTheUser) {
    QStringList names;
    for (const SnapLayout layout : allSnapLayouts)
        names << displayName(layout);
    EXPECT_EQ(names.join(QStringLiteral(", ")).toStdString(),
              "Half & Half, 70/30, 30/70, Thirds, Half + Quarters, Quarters");
}

}  // namespace
}  // namespace pimloft
