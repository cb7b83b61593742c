// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace pimloft {

/// The identifiers of the applications that the mixer lists.
inline constexpr std::array knownAudioApps = {
    "com.spotify.client",
    "com.apple.Music",
    "com.apple.Safari",
    "com.google.Chrome",
    "org.mozilla.firefox",
    "com.microsoft.edgemac",
    "com.brave.Browser",
    "us.zoom.xos",
    "com.apple.FaceTime",
    "com.tinyspeck.slackmacgap",
    "com.hnc.Discord",
    "com.apple.podcasts",
    "com.apple.TV",
    "com.valvesoftware.steam",
    "tv.twitch.TwitchApp",
    "com.vlc-project.vlc",
    "io.mpv",
};

}  // namespace pimloft
