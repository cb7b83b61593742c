// SPDX-License-Identifier: MIT
#include "platform/windows/x11_placement.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr QMargins titleBar(1, 22, 1, 5);
constexpr QMargins shadow(-26, -23, -26, -29);

/// "gravity x,y w x h" of a message; coordinates are signed on the wire.
std::string summary(const QRect &frame, const QMargins &extents, bool isStatic) {
    const auto message = moveResizeMessage(frame, extents, isStatic);
    EXPECT_EQ(message[0] >> 8, 0x2fu) << "all four values, as a pager";
    return QStringLiteral("%1 %2,%3 %4 x %5")
        .arg(message[0] & 0xff)
        .arg(int(message[1]))
        .arg(int(message[2]))
        .arg(message[3])
        .arg(message[4])
        .toStdString();
}

TEST(PlacementMessage, givesTheFramesCornerAndTheClientsSize) {
    EXPECT_EQ(summary({0, 0, 800, 1000}, titleBar, false), "1 0,0 798 x 973");
}

TEST(PlacementMessage, keepsTheWindowsOwnStaticGravityAndGivesTheClientsCorner) {
    EXPECT_EQ(summary({0, 0, 800, 1000}, titleBar, true), "10 1,22 798 x 973");
}

TEST(PlacementMessage, leavesRoomForAShadowThatTheProgramDraws) {
    EXPECT_EQ(summary({100, 50, 800, 600}, shadow, false), "1 74,27 852 x 652");
    EXPECT_EQ(summary({0, 0, 800, 600}, shadow, true), "10 -26,-23 852 x 652");
}

TEST(PlacementMessage, reachesMonitorsLeftOfAndAboveTheOrigin) {
    EXPECT_EQ(summary({-300, -200, 150, 100}, {}, false), "1 -300,-200 150 x 100");
}

TEST(PlacementMessage, neverAsksForAnEmptyClient) {
    EXPECT_EQ(summary({10, 10, 2, 20}, titleBar, false), "1 10,10 1 x 1");
}

}  // namespace
}  // namespace pimloft
