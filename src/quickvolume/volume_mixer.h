// SPDX-License-Identifier: MIT
#pragma once

#include "quickvolume/audio_app.h"
#include "quickvolume/record_list_model.h"

#include <QObject>

namespace pimloft {

class AudioEngine;

/// What the mixer and the feature's page show of the engine, and hand to it. Main thread.
class VolumeMixer : public QObject {
    Q_OBJECT
    Q_PROPERTY(pimloft::RecordListModel *outputDevices READ outputDevices CONSTANT)
    Q_PROPERTY(pimloft::RecordListModel *audioApps READ audioApps CONSTANT)
    Q_PROPERTY(float systemVolume READ systemVolume NOTIFY systemVolumeChanged)
    Q_PROPERTY(bool isSystemMuted READ isSystemMuted NOTIFY isSystemMutedChanged)

public:
    explicit VolumeMixer(AudioEngine &engine);

    /// An AudioOutputDevice for each row.
    RecordListModel *outputDevices() { return &outputDevices_; }
    /// An AudioApp for each row.
    RecordListModel *audioApps() { return &audioApps_; }
    /// Of the default output device, 0 to 1.
    float systemVolume() const;
    bool isSystemMuted() const;

    /// Reads everything anew: nobody tells of other devices, of mute, or of the volume of another default.
    /// The applications stay those of a running engine.
    Q_INVOKABLE void refresh();

    Q_INVOKABLE void setSystemVolume(float volume);
    Q_INVOKABLE void toggleSystemMute();
    /// By the number of an AudioOutputDevice.
    Q_INVOKABLE void setDefaultOutputDevice(quint32 id);
    Q_INVOKABLE void setVolume(const pimloft::AudioApp &app, float volume);
    Q_INVOKABLE void toggleMute(const pimloft::AudioApp &app);

signals:
    void systemVolumeChanged();
    void isSystemMutedChanged();

private:
    void readDevices();
    void readApps();

    AudioEngine &engine_;
    RecordListModel outputDevices_;
    RecordListModel audioApps_;
};

}  // namespace pimloft
