// SPDX-License-Identifier: MIT
#include "platform/displays/monitor_list.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

std::string order(std::vector<Monitor> monitors) {
    std::string ids;
    for (const Monitor &monitor : inDisplayOrder(std::move(monitors)))
        ids += std::to_string(std::uint32_t(monitor.id)) + ' ';
    return ids;
}

Monitor monitor(std::uint32_t id, const QRect &frame, bool isPrimary = false) {
    return {DisplayId(id), frame, isPrimary};
}

TEST(MonitorList, thePrimaryComesFirstAndTheOthersKeepTheirOrder) {
    EXPECT_EQ(order({monitor(1, {0, 0, 800, 600}), monitor(2, {800, 0, 800, 600}),
                     monitor(3, {1600, 0, 800, 600}, true)}),
              "3 1 2 ");
}

TEST(MonitorList, withoutAPrimaryTheOneAtTheOriginComesFirst) {
    EXPECT_EQ(order({monitor(1, {800, 0, 800, 600}), monitor(2, {0, 0, 800, 600})}), "2 1 ");
}

TEST(MonitorList, withNeitherTheOrderStays) {
    EXPECT_EQ(order({monitor(1, {900, 0, 800, 600}), monitor(2, {100, 0, 800, 600})}), "1 2 ");
    EXPECT_EQ(order({}), "");
}

TEST(MonitorList, aMirrorIsTheDisplayThatItMirrors) {
    EXPECT_EQ(order({monitor(1, {0, 0, 800, 600}), monitor(2, {0, 0, 800, 600}, true),
                     monitor(3, {800, 0, 800, 600})}),
              "2 3 ");
}

TEST(MonitorList, aMonitorThatShowsNothingIsNone) {
    EXPECT_EQ(order({monitor(1, {0, 0, 0, 0}, true), monitor(2, {0, 0, 800, 600})}), "2 ");
}

}  // namespace
}  // namespace pimloft
