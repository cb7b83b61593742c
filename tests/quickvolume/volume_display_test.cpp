// SPDX-License-Identifier: MIT
#include "quickvolume/volume_display.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Shown {
    float volume;
    bool muted;
    const char *symbol;
    const char *text;
};

class VolumeDisplayTest : public testing::TestWithParam<Shown> {};

TEST_P(VolumeDisplayTest, hasItsSymbolAndItsText) {
    EXPECT_EQ(systemVolumeSymbol(GetParam().volume, GetParam().muted).toStdString(), GetParam().symbol);
    EXPECT_EQ(volumeText(GetParam().volume).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Volumes, VolumeDisplayTest,
                         testing::Values(Shown{0.0F, false, "speaker.fill", "0%"},
                                         Shown{0.0F, true, "speaker.slash.fill", "0%"},
                                         Shown{1.0F, true, "speaker.slash.fill", "100%"},
                                         Shown{0.001F, false, "speaker.wave.1.fill", "0%"},
                                         Shown{0.3299F, false, "speaker.wave.1.fill", "32%"},
                                         Shown{0.33F, false, "speaker.wave.2.fill", "33%"},
                                         Shown{0.6599F, false, "speaker.wave.2.fill", "65%"},
                                         Shown{0.66F, false, "speaker.wave.3.fill", "66%"},
                                         Shown{0.999F, false, "speaker.wave.3.fill", "99%"},
                                         Shown{1.0F, false, "speaker.wave.3.fill", "100%"}));

}  // namespace
}  // namespace pimloft
