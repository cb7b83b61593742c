// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_state.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(PulseChanges, theLastChangeOfAThingCounts) {
    PulseChanges changes;
    changes.volumes["a"] = 0.1F;
    changes.volumes["a"] = 0.2F;
    changes.defaultSink = "a";
    changes.defaultSink = "b";
    const PulseChanges taken = changes.take([](const PulseChanges::Thing &) { return true; });
    EXPECT_EQ(taken.volumes, (std::map<QByteArray, float>{{"a", 0.2F}}));
    EXPECT_EQ(taken.defaultSink, QByteArray("b"));
    EXPECT_TRUE(changes.isEmpty());
}

TEST(PulseChanges, whatIsNotWantedStays) {
    PulseChanges changes;
    changes.volumes["a"] = 0.1F;
    changes.volumes["b"] = 0.2F;
    changes.mutes["a"] = true;
    changes.defaultSink = "a";
    const PulseChanges taken = changes.take([](const PulseChanges::Thing &thing) {
        return thing.kind == PulseChanges::Thing::volume && thing.sink == "b";
    });
    EXPECT_EQ(taken.volumes, (std::map<QByteArray, float>{{"b", 0.2F}}));
    EXPECT_TRUE(taken.mutes.empty());
    EXPECT_FALSE(taken.defaultSink);
    EXPECT_EQ(changes.volumes.size(), 1u);
    EXPECT_EQ(changes.mutes.size(), 1u);
    EXPECT_TRUE(changes.defaultSink);
}

TEST(PulseChanges, aTakenPartKnowsTheNewestChange) {
    PulseChanges changes;
    changes.newest = 7;
    EXPECT_EQ(changes.take([](const PulseChanges::Thing &) { return true; }).newest, 7u);
}

}  // namespace
}  // namespace pimloft
