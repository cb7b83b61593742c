// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_volume.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace pimloft {
namespace {

pa_cvolume channels(std::initializer_list<double> volumes) {
    pa_cvolume volume{};
    for (const double each : volumes)
        volume.values[volume.channels++] = pa_volume_t(each * PA_VOLUME_NORM);
    return volume;
}

TEST(PulseVolume, isThatOfTheLoudestChannel) {
    EXPECT_EQ(scalar(channels({0.25, 0.75})), 0.75F);
    EXPECT_EQ(scalar(channels({0.5})), 0.5F);
    EXPECT_EQ(scalar(channels({0, 0, 0, 0, 0, 1})), 1.0F);
    EXPECT_EQ(scalar(channels({0, 0})), 0.0F);
}

TEST(PulseVolume, beyondItsFullVolumeReadsAsFull) {
    EXPECT_EQ(scalar(channels({1.5, 1.2})), 1.0F);
}

TEST(PulseVolume, aDeviceWithoutChannelsHasNone) {
    EXPECT_EQ(scalar(pa_cvolume{}), std::nullopt);
}

TEST(PulseVolume, aWholePercentOfTheServersIsOneHere) {
    // Volume keys and other mixers set whole percents, which views here cut off.
    for (int percent = 0; percent <= 100; ++percent) {
        pa_cvolume volume{};
        pa_cvolume_set(&volume, 2, pa_volume_t(percent * PA_VOLUME_NORM / 100));
        EXPECT_EQ(int(*scalar(volume) * 100), percent);
    }
}

TEST(PulseVolume, whatIsSetReadsTheSame) {
    for (int part = 0; part <= 1000; ++part) {
        const float wanted = float(part) / 1000;
        EXPECT_NEAR(*scalar(scaled(channels({1, 1}), wanted)), wanted, 1e-4);
    }
}

TEST(PulseVolume, outsideOfTheScaleIsTheNearerEnd) {
    EXPECT_EQ(step(-1), PA_VOLUME_MUTED);
    EXPECT_EQ(step(2), PA_VOLUME_NORM);
    EXPECT_EQ(step(0.5F), PA_VOLUME_NORM / 2);
}

TEST(PulseVolume, theBalanceStays) {
    const pa_cvolume half = scaled(channels({0.8, 0.4}), 0.5F);
    EXPECT_EQ(half.values[0], PA_VOLUME_NORM / 2);
    EXPECT_NEAR(half.values[1], PA_VOLUME_NORM / 4, 1);
}

TEST(PulseVolume, silenceHasNoBalance) {
    EXPECT_TRUE(isEqual(scaled(channels({0, 0}), 0.5F), channels({0.5, 0.5})));
    EXPECT_TRUE(isSilent(channels({0, 0})));
    EXPECT_FALSE(isSilent(channels({0, 0.1})));
}

TEST(PulseVolume, equalAreThoseWithEqualChannels) {
    EXPECT_TRUE(isEqual(pa_cvolume{}, pa_cvolume{}));
    EXPECT_FALSE(isEqual(channels({0.5}), channels({0.5, 0.5})));
    EXPECT_FALSE(isEqual(channels({0.5, 0.4}), channels({0.5, 0.5})));
}

}  // namespace
}  // namespace pimloft
