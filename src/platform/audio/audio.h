// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pimloft {

/// A sound device. Keeps its number for as long as the process runs, also while it is unplugged.
enum class AudioDeviceId : std::uint32_t {};

/// One request to be told of a device's volume.
enum class VolumeListenerId : std::uint32_t {};

/// The sound devices of this computer. Main thread only; nothing here waits for the sound server.
///
/// Reads answer nothing for a device that is gone or lacks the property, and while no sound server is there.
/// What was set is what the next read answers; where settings follow each other faster than the server takes
/// them, the last one counts.
class AudioService {
public:
    virtual ~AudioService() = default;

    virtual std::optional<AudioDeviceId> defaultOutputDevice() = 0;
    /// Outputs and inputs, in the system's order.
    virtual std::vector<AudioDeviceId> devices() = 0;
    virtual bool hasOutput(AudioDeviceId device) = 0;

    /// As the user knows it.
    virtual std::optional<QString> name(AudioDeviceId device) = 0;
    /// What it is called for ever, also by another process.
    virtual std::optional<QString> uid(AudioDeviceId device) = 0;
    /// Between 0 and 1, even in steps of loudness as it is heard; the loudest channel's.
    virtual std::optional<float> volume(AudioDeviceId device) = 0;
    virtual std::optional<bool> isMuted(AudioDeviceId device) = 0;

    // False: refused, and nothing has changed.

    /// The balance between the channels stays. What lies outside of 0 to 1 is taken as the nearer end.
    virtual bool setVolume(AudioDeviceId device, float volume) = 0;
    virtual bool setMuted(AudioDeviceId device, bool muted) = 0;
    virtual bool setDefaultOutputDevice(AudioDeviceId device) = 0;

    /// Calls `changed`, queued, after another program changed this device's volume. Nothing for a device
    /// without one.
    virtual std::optional<VolumeListenerId> listenToVolume(AudioDeviceId device,
                                                           std::function<void()> changed) = 0;
    /// False where this device has no such listener.
    virtual bool stopListening(AudioDeviceId device, VolumeListenerId listener) = 0;

    /// Called, queued, when the sound system has come up or come back: all listeners are gone then.
    std::function<void()> onRestarted;
};

}  // namespace pimloft
