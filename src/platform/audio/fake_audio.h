// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio/audio.h"
#include "platform/fake_log.h"

#include <map>

namespace pimloft {

/// Sound devices that a test plugs in and turns, as if other programs did. Changes of ours are recorded;
/// asking for a device that never existed is a failure.
class FakeAudio final : public AudioService {
public:
    explicit FakeAudio(FakeLog &log) : log_(log) {}

    struct Device {
        QString name;
        bool output = true;
        std::optional<float> volume = 0.5F;
        std::optional<bool> muted = false;
        bool plugged = true;
        bool refuses = false;  ///< to be changed
        bool nameKnown = true;
        bool uidKnown = true;
    };

    std::optional<AudioDeviceId> defaultOutputDevice() override;
    std::vector<AudioDeviceId> devices() override;
    bool hasOutput(AudioDeviceId device) override;
    std::optional<QString> name(AudioDeviceId device) override;
    std::optional<QString> uid(AudioDeviceId device) override;
    std::optional<float> volume(AudioDeviceId device) override;
    std::optional<bool> isMuted(AudioDeviceId device) override;
    bool setVolume(AudioDeviceId device, float volume) override;
    bool setMuted(AudioDeviceId device, bool muted) override;
    bool setDefaultOutputDevice(AudioDeviceId device) override;
    std::optional<VolumeListenerId> listenToVolume(AudioDeviceId device,
                                                   std::function<void()> changed) override;
    bool stopListening(AudioDeviceId device, VolumeListenerId listener) override;

    /// Plugs one in. The first with an output is the default.
    AudioDeviceId add(const Device &device);
    /// To change what a test wants changed without a notice.
    Device &at(AudioDeviceId device);
    /// Another program turns the volume.
    void turn(AudioDeviceId device, float volume);
    /// The sound server ended and is back, with the devices as they are now.
    void restart();

    std::optional<AudioDeviceId> chosen;  ///< the default output
    int reads = 0;                        ///< how often anything was asked

private:
    struct Listener {
        AudioDeviceId device;
        std::function<void()> changed;
    };
    Device *plugged(AudioDeviceId device);
    const Device *read(AudioDeviceId device);
    Device *changeable(AudioDeviceId device);

    FakeLog &log_;
    std::vector<Device> devices_;  ///< the first is device 1
    std::map<VolumeListenerId, Listener> listeners_;
    std::uint32_t newestListener_ = 0;
};

}  // namespace pimloft
