// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio/audio.h"
#include "platform/audio/mac_audio_property.h"

#include <QObject>

#include <map>

namespace pimloft {

/// The sound devices as the system's hardware properties tell of them; devices have the system's own numbers.
/// Main thread.
class MacAudio final : public AudioService {
public:
    MacAudio();
    ~MacAudio() override;

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

private:
    struct Listener {
        AudioDeviceId device;
        std::function<void()> changed;
        std::unique_ptr<MacAudioListener> system;
    };

    void tell(VolumeListenerId listener);
    void handleRestart();

    std::map<VolumeListenerId, Listener> listeners_;
    std::uint32_t newestListener_ = 0;
    std::unique_ptr<MacAudioListener> restarts_;
    QObject calls_;  ///< receives what is queued
};

}  // namespace pimloft
