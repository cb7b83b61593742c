// SPDX-License-Identifier: MIT
#include "platform/scripting/player_script.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(PlayerScript, twoPlayersTakeScripts) {
    EXPECT_EQ(scriptedPlayer(QStringLiteral("com.spotify.client")), QStringLiteral("Spotify"));
    EXPECT_EQ(scriptedPlayer(QStringLiteral("com.apple.Music")), QStringLiteral("Music"));
    EXPECT_EQ(scriptedPlayer(QStringLiteral("io.mpv")), std::nullopt);
}

TEST(PlayerScript, hasThisText) {
    EXPECT_EQ(setVolumeScript(QStringLiteral("Spotify"), 50).toStdString(),
              "tell application \"Spotify\" to set sound volume to 50");
}

TEST(PlayerScript, isUnderstoodAsItWasMeant) {
    for (const int percent : {0, 50, 100, 170, -3})
        EXPECT_EQ(parseSetVolume(setVolumeScript(QStringLiteral("Music"), percent)),
                  (SetVolume{QStringLiteral("com.apple.Music"), percent}));
}

class OtherScript : public testing::TestWithParam<const char *> {};

TEST_P(OtherScript, isNone) {
    EXPECT_EQ(parseSetVolume(QString::fromUtf8(GetParam())), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(PlayerScript, OtherScript,
                         testing::Values("", "tell application \"Finder\" to activate",
                                         "tell application \"VLC\" to set sound volume to 5",
                                         "tell application \"Music\" to set sound volume to",
                                         "tell application \"Music\" to set sound volume to 5.5",
                                         "tell application \"Music\" to set sound volume to 99999999999",
                                         "tell application \"Music\" to set sound volume to 5\n",
                                         " tell application \"Music\" to set sound volume to 5"));

}  // namespace
}  // namespace pimloft
