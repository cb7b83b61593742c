// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/volume.h>

#include <optional>

namespace pimloft {

// The sound server counts a volume for each channel, in steps that are even to the ear; the rest of the
// program has one number between 0 and 1. Pure; any thread.

/// The loudest channel's volume; nothing for a device that has none. What is amplified beyond its full volume
/// reads as 1. A volume that is a whole percent to the server is one here, too.
std::optional<float> scalar(const pa_cvolume &volume);

/// The server's step for a volume; outside of 0 to 1 it is that of the nearer end.
pa_volume_t step(float scalar);

/// `balanced` made as loud as `scalar`, with its balance; silence has none, and all its channels become
/// equal.
pa_cvolume scaled(const pa_cvolume &balanced, float scalar);

bool isSilent(const pa_cvolume &volume);

/// Also of volumes that are none.
bool isEqual(const pa_cvolume &a, const pa_cvolume &b);

}  // namespace pimloft
