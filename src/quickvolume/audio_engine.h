// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio/audio.h"
#include "platform/windows/windows.h"
#include "quickvolume/audio_app.h"
#include "quickvolume/audio_output_device.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <memory>

namespace pimloft {

class ScriptingService;
class WorkspaceService;

/// The model behind the volume mixer: the default output device's volume and mute, the output devices, and
/// the running applications that are known to play sound. Main thread.
///
/// What is published changes from the event loop, after the call that asked for it has returned. Whatever the
/// sound system refuses is skipped without a word, and what is published stays as it was.
class AudioEngine : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<pimloft::AudioApp> audioApps READ audioApps NOTIFY audioAppsChanged)
    Q_PROPERTY(QList<pimloft::AudioOutputDevice> outputDevices READ outputDevices NOTIFY outputDevicesChanged)
    Q_PROPERTY(float systemVolume READ systemVolume NOTIFY systemVolumeChanged)
    Q_PROPERTY(bool isSystemMuted READ isSystemMuted NOTIFY isSystemMutedChanged)

public:
    static AudioEngine &shared();
    /// `ownProcess` is never listed.
    AudioEngine(AudioService &audio, WorkspaceService &workspace, ScriptingService &scripting,
                ProcessId ownProcess);
    ~AudioEngine() override;

    /// Reads everything, looks for applications every two seconds from now on, and listens to the volume of
    /// the device that is the default now. Does nothing when it does so already.
    void start();
    /// Lets all of it go and empties the list of applications at once. The rest keeps its last state.
    void stop();
    bool isActive() const { return isActive_; }

    void refreshSystemVolume();
    void refreshOutputDevices();
    void refreshAudioApps();

    /// Of the default output device; 0 to 1, and handed on as it is.
    void setSystemVolume(float volume);
    void toggleSystemMute();
    void setDefaultOutputDevice(AudioDeviceId device);

    /// Remembers the volume (0 to 1) for the application. Two players are also told; the others go on as loud
    /// as they are.
    void setVolume(const AudioApp &app, float volume);
    /// Inverts the flag that the mixer shows. Nothing becomes silent.
    void toggleMute(const AudioApp &app);

    const QList<AudioApp> &audioApps() const { return audioApps_; }
    const QList<AudioOutputDevice> &outputDevices() const { return outputDevices_; }
    float systemVolume() const { return systemVolume_; }
    bool isSystemMuted() const { return isSystemMuted_; }
    const QTimer *pollTimer() const { return pollTimer_.get(); }
    std::optional<VolumeListenerId> volumeListenerBlock() const { return volumeListenerBlock_; }

signals:
    void audioAppsChanged();
    void outputDevicesChanged();
    void systemVolumeChanged();
    void isSystemMutedChanged();

private:
    void readEverything();
    void listenForVolumeChanges();
    void removeVolumeListener();
    void setAppVolumeViaScript(const QString &bundleID, float volume);

    void post(std::function<void()> change);
    void postAboutApps(std::function<void()> change);
    void publishSystemVolume(float volume);
    void publishSystemMute(bool muted);
    void publishOutputDevices(const QList<AudioOutputDevice> &devices);
    void publishAudioApps(QList<AudioApp> apps);
    AudioApp *find(std::int32_t id);

    AudioService &audio_;
    WorkspaceService &workspace_;
    ScriptingService &scripting_;
    const ProcessId ownProcess_;

    QList<AudioApp> audioApps_;
    QList<AudioOutputDevice> outputDevices_;
    float systemVolume_ = 0;
    bool isSystemMuted_ = false;
    bool isActive_ = false;
    std::unique_ptr<QTimer> pollTimer_;
    std::optional<VolumeListenerId> volumeListenerBlock_;
    std::unique_ptr<QObject>
        appPosts_;  ///< destroying it drops what is still to be published of applications
};

}  // namespace pimloft
