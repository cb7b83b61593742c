// SPDX-License-Identifier: MIT
#include "quickvolume/volume_mixer.h"

#include "quickvolume/audio_engine.h"

namespace pimloft {

VolumeMixer::VolumeMixer(AudioEngine &engine) : engine_(engine) {
    connect(&engine_, &AudioEngine::outputDevicesChanged, this, &VolumeMixer::readDevices);
    connect(&engine_, &AudioEngine::audioAppsChanged, this, &VolumeMixer::readApps);
    connect(&engine_, &AudioEngine::systemVolumeChanged, this, &VolumeMixer::systemVolumeChanged);
    connect(&engine_, &AudioEngine::isSystemMutedChanged, this, &VolumeMixer::isSystemMutedChanged);
    readDevices();
    readApps();
}

void VolumeMixer::readDevices() {
    std::vector<RecordListModel::Row> rows;
    for (const AudioOutputDevice &device : engine_.outputDevices())
        rows.push_back({device.id, QVariant::fromValue(device)});
    outputDevices_.replace(rows);
}

void VolumeMixer::readApps() {
    std::vector<RecordListModel::Row> rows;
    for (const AudioApp &app : engine_.audioApps())
        rows.push_back({app.id, QVariant::fromValue(app)});
    audioApps_.replace(rows);
}

float VolumeMixer::systemVolume() const {
    return engine_.systemVolume();
}

bool VolumeMixer::isSystemMuted() const {
    return engine_.isSystemMuted();
}

void VolumeMixer::refresh() {
    engine_.refreshSystemVolume();
    engine_.refreshOutputDevices();
    if (engine_.isActive())
        engine_.refreshAudioApps();
}

void VolumeMixer::setSystemVolume(float volume) {
    engine_.setSystemVolume(volume);
}

void VolumeMixer::toggleSystemMute() {
    engine_.toggleSystemMute();
}

void VolumeMixer::setDefaultOutputDevice(quint32 id) {
    engine_.setDefaultOutputDevice(AudioDeviceId(id));
}

void VolumeMixer::setVolume(const AudioApp &app, float volume) {
    engine_.setVolume(app, volume);
}

void VolumeMixer::toggleMute(const AudioApp &app) {
    engine_.toggleMute(app);
}

}  // namespace pimloft
