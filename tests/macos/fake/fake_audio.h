// SPDX-License-Identifier: MIT
#pragma once

#include <CoreAudio/CoreAudio.h>

#include <optional>
#include <string>
#include <vector>

namespace pimloft::test::mac {

/// A sound device as the system has it.
struct SoundDevice {
    AudioObjectID id;
    std::string name;
    std::string uid;
    bool hasOutput = true;
    std::optional<float> volume = 0.5F;
    std::optional<UInt32> muted = 0;
};

/// The sound system of a test.
struct SoundSystem {
    std::vector<SoundDevice> devices;
    AudioObjectID output = kAudioObjectUnknown;
    bool refuses = false;        ///< every change, and every listener
    AudioObjectID vanishes = 0;  ///< is gone between the question for a size and the one for the data
    SoundDevice &device(AudioObjectID id);
};
SoundSystem &soundSystem();

/// The system tells those who listen to a property of a device, or of itself.
void tellListeners(AudioObjectID object, const std::string &selector);
/// The same, but what is told of is still on its way when this returns: call the answer later.
void tellListenersLater(AudioObjectID object, const std::string &selector);
void tellNow();
int listenerCount();

}  // namespace pimloft::test::mac
