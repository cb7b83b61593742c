// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace pimloft {

// The scripts that set the volume of music players. Pure; any thread.

/// The player that has this identifier, as scripts call it: "Spotify", "Music". Nothing for any other
/// program.
std::optional<QString> scriptedPlayer(const QString &bundleId);

/// The text that sets a player's own volume, in percent.
QString setVolumeScript(const QString &player, int percent);

/// What such a text says.
struct SetVolume {
    QString bundleId;
    int percent;

    friend bool operator==(const SetVolume &, const SetVolume &) = default;
};
/// Nothing for any other text.
std::optional<SetVolume> parseSetVolume(const QString &script);

}  // namespace pimloft
