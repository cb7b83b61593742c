// SPDX-License-Identifier: MIT
#include "quickvolume/audio_engine.h"

#include "app/process.h"
#include "platform/scripting/player_script.h"
#include "platform/scripting/scripting.h"
#include "platform/workspace/workspace.h"
#include "quickvolume/known_audio_apps.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <utility>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

bool isKnown(const QString &bundleID) {
    return std::any_of(knownAudioApps.begin(), knownAudioApps.end(),
                       [&](const char *known) { return bundleID == QLatin1String(known); });
}

/// Whole percent, cut off: 0.999 is 99.
int percentOf(float volume) {
    constexpr float limit = 1e9F;  // fits into an int, and no volume comes near it
    return int(std::clamp(volume * 100, -limit, limit));
}

}  // namespace

AudioEngine &AudioEngine::shared() {
    return Process::current().shared<AudioEngine>([](Process &process) {
        const Platform &platform = process.platform();
        return std::make_unique<AudioEngine>(platform.audio, platform.workspace, platform.scripting,
                                             ProcessId(QCoreApplication::applicationPid()));
    });
}

AudioEngine::AudioEngine(AudioService &audio, WorkspaceService &workspace, ScriptingService &scripting,
                         ProcessId ownProcess)
    : audio_(audio), workspace_(workspace), scripting_(scripting), ownProcess_(ownProcess),
      appPosts_(std::make_unique<QObject>()) {
    audio_.onRestarted = [this] {
        // The listener went with what it listened to.
        volumeListenerBlock_.reset();
        if (!isActive_)
            return;
        readEverything();
        listenForVolumeChanges();
    };
}

AudioEngine::~AudioEngine() {
    audio_.onRestarted = nullptr;
    removeVolumeListener();
}

void AudioEngine::start() {
    if (std::exchange(isActive_, true))
        return;
    readEverything();
    pollTimer_ = std::make_unique<QTimer>();
    connect(pollTimer_.get(), &QTimer::timeout, this, &AudioEngine::refreshAudioApps);
    pollTimer_->start(2s);
    listenForVolumeChanges();
}

void AudioEngine::stop() {
    isActive_ = false;
    pollTimer_.reset();
    removeVolumeListener();
    // A list that is still to be published would fill it again.
    appPosts_ = std::make_unique<QObject>();
    publishAudioApps({});
}

void AudioEngine::readEverything() {
    refreshSystemVolume();
    refreshOutputDevices();
    refreshAudioApps();
}

void AudioEngine::refreshSystemVolume() {
    const auto device = audio_.defaultOutputDevice();
    if (!device)
        return;
    if (const auto volume = audio_.volume(*device))
        post([this, volume] { publishSystemVolume(*volume); });
    if (const auto muted = audio_.isMuted(*device))
        post([this, muted] { publishSystemMute(*muted); });
}

void AudioEngine::refreshOutputDevices() {
    const auto chosen = audio_.defaultOutputDevice();
    QList<AudioOutputDevice> devices;
    for (const AudioDeviceId id : audio_.devices()) {
        if (!audio_.hasOutput(id))
            continue;
        const auto name = audio_.name(id);
        const auto uid = audio_.uid(id);
        if (name && uid)
            devices.push_back(
                {.id = std::uint32_t(id), .name = *name, .uid = *uid, .isDefault = chosen == id});
    }
    post([this, devices] { publishOutputDevices(devices); });
}

void AudioEngine::refreshAudioApps() {
    QList<AudioApp> apps;
    for (const Application &application : workspace_.runningApplications()) {
        const bool isListed = application.policy != ActivationPolicy::prohibited &&
                              !application.name.isEmpty() && application.processId != ownProcess_ &&
                              application.bundleId && isKnown(*application.bundleId);
        if (!isListed)
            continue;
        AudioApp app;
        app.id = std::int32_t(application.processId);
        app.name = application.name;
        app.bundleID = application.bundleId;
        app.icon = workspace_.icon(application);
        apps.push_back(app);
    }
    postAboutApps([this, apps]() mutable {
        for (AudioApp &app : apps)
            if (const AudioApp *before = find(app.id)) {
                app.volume = before->volume;
                app.isMuted = before->isMuted;
            }
        publishAudioApps(apps);
    });
}

void AudioEngine::setSystemVolume(float volume) {
    const auto device = audio_.defaultOutputDevice();
    if (device && audio_.setVolume(*device, volume))
        post([this, volume] { publishSystemVolume(volume); });
}

void AudioEngine::toggleSystemMute() {
    const bool muted = !isSystemMuted_;
    const auto device = audio_.defaultOutputDevice();
    if (device && audio_.setMuted(*device, muted))
        post([this, muted] { publishSystemMute(muted); });
}

void AudioEngine::setDefaultOutputDevice(AudioDeviceId device) {
    if (!audio_.setDefaultOutputDevice(device))
        return;
    refreshOutputDevices();
    refreshSystemVolume();
}

void AudioEngine::setVolume(const AudioApp &app, float volume) {
    postAboutApps([this, id = app.id, volume] {
        AudioApp *found = find(id);
        if (found && std::exchange(found->volume, volume) != volume)
            emit audioAppsChanged();
    });
    if (app.bundleID)
        setAppVolumeViaScript(*app.bundleID, volume);
}

void AudioEngine::toggleMute(const AudioApp &app) {
    postAboutApps([this, id = app.id] {
        AudioApp *found = find(id);
        if (!found)
            return;
        found->isMuted = !found->isMuted;
        emit audioAppsChanged();
    });
}

void AudioEngine::setAppVolumeViaScript(const QString &bundleID, float volume) {
    const auto player = scriptedPlayer(bundleID);
    if (player && !std::isnan(volume))
        scripting_.run(setVolumeScript(*player, percentOf(volume)), this, [](const ScriptResult &) {});
}

void AudioEngine::listenForVolumeChanges() {
    if (const auto device = audio_.defaultOutputDevice())
        volumeListenerBlock_ = audio_.listenToVolume(*device, [engine = QPointer(this)] {
            if (engine)
                engine->refreshSystemVolume();
        });
}

void AudioEngine::removeVolumeListener() {
    // Asks the device that is the default now. After a change of the default the listener so stays with the
    // device that it was made for, and what it still tells does no harm.
    const auto listener = std::exchange(volumeListenerBlock_, std::nullopt);
    if (const auto device = audio_.defaultOutputDevice(); device && listener)
        audio_.stopListening(*device, *listener);
}

void AudioEngine::post(std::function<void()> change) {
    QMetaObject::invokeMethod(this, std::move(change), Qt::QueuedConnection);
}

void AudioEngine::postAboutApps(std::function<void()> change) {
    QMetaObject::invokeMethod(appPosts_.get(), std::move(change), Qt::QueuedConnection);
}

void AudioEngine::publishSystemVolume(float volume) {
    if (std::exchange(systemVolume_, volume) != volume)
        emit systemVolumeChanged();
}

void AudioEngine::publishSystemMute(bool muted) {
    if (std::exchange(isSystemMuted_, muted) != muted)
        emit isSystemMutedChanged();
}

void AudioEngine::publishOutputDevices(const QList<AudioOutputDevice> &devices) {
    if (std::exchange(outputDevices_, devices) != devices)
        emit outputDevicesChanged();
}

void AudioEngine::publishAudioApps(QList<AudioApp> apps) {
    if (audioApps_ == apps)
        return;
    audioApps_ = std::move(apps);
    emit audioAppsChanged();
}

AudioApp *AudioEngine::find(std::int32_t id) {
    const auto found = std::find_if(audioApps_.begin(), audioApps_.end(),
                                    [id](const AudioApp &app) { return app.id == id; });
    return found == audioApps_.end() ? nullptr : &*found;
}

}  // namespace pimloft
