// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio/audio.h"
#include "platform/audio/pulse_server.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <map>

namespace pimloft {

/// The sound devices of a PulseAudio server, or of PipeWire standing in for one. Main thread.
///
/// Sinks are outputs, sources inputs; what merely records a sink is no device, and neither is the dummy that
/// a server without devices plays to. Devices are known by their names, as the server's own numbers change
/// whenever it restarts.
class PulseAudio final : public AudioService {
public:
    PulseAudio();
    ~PulseAudio() override;

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

    /// The server and what it plays to, for the diagnosis. Waits a moment where the server has only just been
    /// looked for.
    struct Summary {
        QString server;       ///< empty where there is none
        QString output = {};  ///< empty where it has none
    };
    Summary summary();

private:
    /// What was set and may not have come back from the server yet.
    template <typename Value>
    struct Own {
        Value value;
        quint64 change;
    };
    struct Listener {
        AudioDeviceId device;
        std::function<void()> changed;
    };
    using Key = std::pair<bool, QByteArray>;

    AudioDeviceId idOf(bool output, const QByteArray &name);
    const PulseDevice *find(AudioDeviceId device) const;
    void take(PulseState state);
    void forgetWhatCameBack();
    void tellOfVolumes(const std::map<AudioDeviceId, std::optional<float>> &before);

    QHash<Key, AudioDeviceId> ids_;
    std::vector<Key> keys_;  ///< of device 1, device 2, ...
    PulseState state_;
    std::map<AudioDeviceId, Own<float>> ownVolumes_;
    std::map<AudioDeviceId, Own<bool>> ownMutes_;
    std::optional<Own<AudioDeviceId>> ownDefault_;
    QTimer patience_;  ///< with a default that the server does not tell of
    std::map<VolumeListenerId, Listener> listeners_;
    std::uint32_t newestListener_ = 0;
    QObject receiver_;    ///< of what the server's thread reports
    PulseServer server_;  ///< the last, so that its thread ends before what it reports to
};

}  // namespace pimloft
