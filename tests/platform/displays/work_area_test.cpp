// SPDX-License-Identifier: MIT
#include "platform/displays/work_area.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace pimloft {
namespace {

constexpr QSize root{1600, 1000};
constexpr QRect whole{0, 0, 1600, 1000};
constexpr QRect left{0, 0, 800, 1000};
constexpr QRect right{800, 0, 800, 1000};
constexpr QRect lowRight{800, 0, 800, 600};
constexpr auto immense = std::int64_t(std::numeric_limits<std::uint32_t>::max());

struct Case {
    const char *sentence;
    QRect monitor;
    std::vector<Strut> struts;
    const char *expected;
};
void PrintTo(const Case &example, std::ostream *out) {
    *out << example.sentence;
}

class WorkArea : public testing::TestWithParam<Case> {};

TEST_P(WorkArea, isWhatTheStrutsLeave) {
    const QRect area = workArea(GetParam().monitor, GetParam().struts, root);
    const QString text =
        QStringLiteral("%1,%2 %3 x %4").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
    EXPECT_EQ(text.toStdString(), GetParam().expected) << GetParam().sentence;
}

const Case cases[] = {
    {"no strut leaves the whole monitor", whole, {}, "0,0 1600 x 1000"},
    {"a bar on each edge",
     whole,
     {{.left = {50, 0, 999}}, {.right = {60, 0, 999}}, {.top = {30, 0, 1599}}, {.bottom = {40, 0, 1599}}},
     "50,30 1490 x 930"},
    {"the deepest of several bars on one edge counts",
     whole,
     {{.top = {30, 0, 1599}}, {.top = {20, 0, 1599}}},
     "0,30 1600 x 970"},
    {"one window may reserve several edges",
     whole,
     {{.left = {50, 0, 999}, .top = {30, 0, 1599}}},
     "50,30 1550 x 970"},
    {"a bar above the other monitor costs nothing", left, {{.top = {40, 800, 1599}}}, "0,0 800 x 1000"},
    {"a bar below the other monitor costs nothing", left, {{.bottom = {40, 800, 1599}}}, "0,0 800 x 1000"},
    {"a bar above this monitor", right, {{.top = {40, 800, 1599}}}, "800,40 800 x 960"},
    {"a stretch that ends one pixel short of the monitor",
     right,
     {{.top = {40, 0, 799}}},
     "800,0 800 x 1000"},
    {"a stretch that begins with the monitor's last pixel",
     left,
     {{.top = {40, 799, 1599}}},
     "0,40 800 x 960"},
    {"a bar on the inner edge of the right monitor", right, {{.left = {850, 0, 999}}}, "850,0 750 x 1000"},
    {"is none of the left monitor's", left, {{.left = {850, 0, 999}}}, "0,0 800 x 1000"},
    {"a bar on the inner edge of the left monitor", left, {{.right = {850, 0, 999}}}, "0,0 750 x 1000"},
    {"is none of the right monitor's", right, {{.right = {850, 0, 999}}}, "800,0 800 x 1000"},
    {"a bar below a monitor that ends above the root's edge",
     lowRight,
     {{.bottom = {440, 800, 1599}}},
     "800,0 800 x 560"},
    {"a strut that only reaches the gap below such a monitor",
     lowRight,
     {{.bottom = {40, 800, 1599}}},
     "800,0 800 x 600"},
    {"a strut as deep as the monitor", left, {{.left = {800, 0, 999}}}, "0,0 800 x 1000"},
    {"a strut deeper than the root", left, {{.left = {5000, 0, 999}}}, "0,0 800 x 1000"},
    {"the largest values that there are",
     whole,
     {{.left = {immense, 0, immense}, .bottom = {immense, 0, immense}}},
     "0,0 1600 x 1000"},
    {"struts that meet in the middle leave all of that axis",
     whole,
     {{.left = {900, 0, 999}}, {.right = {700, 0, 999}}, {.top = {30, 0, 1599}}},
     "0,30 1600 x 970"},
    {"struts that leave one pixel",
     whole,
     {{.left = {900, 0, 999}}, {.right = {699, 0, 999}}},
     "900,0 1 x 1000"},
    {"a stretch turned round", whole, {{.top = {30, 1599, 0}}}, "0,0 1600 x 1000"},
    {"a stretch beyond the root", whole, {{.top = {30, 0, 9999}}}, "0,30 1600 x 970"},
    {"a stretch of one pixel", whole, {{.top = {30, 0, 0}}}, "0,30 1600 x 970"},
};

INSTANTIATE_TEST_SUITE_P(Cases, WorkArea, testing::ValuesIn(cases));

TEST(Strut, isReadFromTheTwelveValues) {
    const auto strut = parseStrut({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, {}, root);
    ASSERT_TRUE(strut);
    EXPECT_EQ(strut->left.depth, 1);
    EXPECT_EQ(strut->left.start, 5);
    EXPECT_EQ(strut->right.end, 8);
    EXPECT_EQ(strut->top.start, 9);
    EXPECT_EQ(strut->bottom.depth, 4);
    EXPECT_EQ(strut->bottom.end, 12);
}

TEST(Strut, theFourValuesCountAlongTheWholeEdge) {
    const auto strut = parseStrut({}, {0, 0, 30, 0}, root);
    ASSERT_TRUE(strut);
    EXPECT_EQ(workArea(left, {*strut}, root), QRect(0, 30, 800, 970));
    EXPECT_EQ(workArea(right, {*strut}, root), QRect(800, 30, 800, 970));
}

TEST(Strut, theTwelveValuesWinOverTheFour) {
    const auto strut = parseStrut({0, 0, 30, 0, 0, 0, 0, 0, 0, 799, 0, 0}, {0, 0, 99, 0}, root);
    ASSERT_TRUE(strut);
    EXPECT_EQ(workArea(left, {*strut}, root), QRect(0, 30, 800, 970));
    EXPECT_EQ(workArea(right, {*strut}, root), right);
}

TEST(Strut, isNothingWhereAListIsShortOrReservesNothing) {
    EXPECT_FALSE(parseStrut({}, {}, root));
    EXPECT_FALSE(parseStrut({30, 0, 0}, {30, 0, 0}, root));
    EXPECT_FALSE(parseStrut({0, 0, 0, 0, 0, 999, 0, 999, 0, 1599, 0, 1599}, {}, root));
    EXPECT_TRUE(parseStrut({30, 0}, {30, 0, 0, 0}, root)) << "the complete list counts";
}

TEST(Strut, mayReserveOneEdgeOnly) {
    for (const std::vector<std::uint32_t> &edge :
         {std::vector<std::uint32_t>{9, 0, 0, 0}, {0, 9, 0, 0}, {0, 0, 9, 0}, {0, 0, 0, 9}})
        EXPECT_TRUE(parseStrut({}, edge, root));
}

}  // namespace
}  // namespace pimloft
