// SPDX-License-Identifier: MIT
#include "platform/audio/fake_audio.h"

#include <gtest/gtest.h>

#include <utility>

namespace pimloft {

FakeAudio::Device &FakeAudio::at(AudioDeviceId device) {
    const auto index = std::uint32_t(device) - 1;
    if (index >= devices_.size())
        qFatal("there never was an audio device %u", std::uint32_t(device));
    return devices_[index];
}

FakeAudio::Device *FakeAudio::plugged(AudioDeviceId device) {
    Device &found = at(device);
    return found.plugged ? &found : nullptr;
}

const FakeAudio::Device *FakeAudio::read(AudioDeviceId device) {
    ++reads;
    return plugged(device);
}

FakeAudio::Device *FakeAudio::changeable(AudioDeviceId device) {
    Device *found = plugged(device);
    return found && !found->refuses ? found : nullptr;
}

std::optional<AudioDeviceId> FakeAudio::defaultOutputDevice() {
    ++reads;
    return chosen && plugged(*chosen) ? chosen : std::nullopt;
}

std::vector<AudioDeviceId> FakeAudio::devices() {
    ++reads;
    std::vector<AudioDeviceId> list;
    for (std::uint32_t number = 1; number <= devices_.size(); ++number)
        if (plugged(AudioDeviceId(number)))
            list.push_back(AudioDeviceId(number));
    return list;
}

bool FakeAudio::hasOutput(AudioDeviceId device) {
    const Device *found = read(device);
    return found && found->output;
}

std::optional<QString> FakeAudio::name(AudioDeviceId device) {
    const Device *found = read(device);
    return found && found->nameKnown ? std::optional(found->name) : std::nullopt;
}

std::optional<QString> FakeAudio::uid(AudioDeviceId device) {
    const Device *found = read(device);
    return found && found->uidKnown ? std::optional(QStringLiteral("uid of ") + found->name) : std::nullopt;
}

std::optional<float> FakeAudio::volume(AudioDeviceId device) {
    const Device *found = read(device);
    return found ? found->volume : std::nullopt;
}

std::optional<bool> FakeAudio::isMuted(AudioDeviceId device) {
    const Device *found = read(device);
    return found ? found->muted : std::nullopt;
}

bool FakeAudio::setVolume(AudioDeviceId device, float volume) {
    Device *found = changeable(device);
    if (!found || !found->volume)
        return false;
    log_.line(QStringLiteral("set the volume of %1 to %2").arg(found->name).arg(double(volume)));
    found->volume = volume;
    return true;
}

bool FakeAudio::setMuted(AudioDeviceId device, bool muted) {
    Device *found = changeable(device);
    if (!found || !found->muted)
        return false;
    log_.line((muted ? QStringLiteral("mute %1") : QStringLiteral("unmute %1")).arg(found->name));
    found->muted = muted;
    return true;
}

bool FakeAudio::setDefaultOutputDevice(AudioDeviceId device) {
    const Device *found = changeable(device);
    if (!found || !found->output)
        return false;
    log_.line(QStringLiteral("make %1 the default output").arg(found->name));
    chosen = device;
    return true;
}

std::optional<VolumeListenerId> FakeAudio::listenToVolume(AudioDeviceId device,
                                                          std::function<void()> changed) {
    const Device *found = plugged(device);
    if (!found || !found->volume)
        return std::nullopt;
    log_.line(QStringLiteral("listen to the volume of %1").arg(found->name));
    const VolumeListenerId id{++newestListener_};
    listeners_[id] = {device, std::move(changed)};
    return id;
}

bool FakeAudio::stopListening(AudioDeviceId device, VolumeListenerId listener) {
    const auto found = listeners_.find(listener);
    const bool removed = found != listeners_.end() && found->second.device == device;
    log_.line(QStringLiteral("stop listening to the volume of %1%2")
                  .arg(at(device).name, removed ? QString() : QStringLiteral(", in vain")));
    if (removed)
        listeners_.erase(found);
    return removed;
}

AudioDeviceId FakeAudio::add(const Device &device) {
    devices_.push_back(device);
    const AudioDeviceId id{std::uint32_t(devices_.size())};
    if (device.output && !chosen)
        chosen = id;
    return id;
}

void FakeAudio::turn(AudioDeviceId device, float volume) {
    at(device).volume = volume;
    // A listener may add or remove others.
    const auto listeners = listeners_;
    for (const auto &[id, listener] : listeners)
        if (listener.device == device)
            listener.changed();
}

void FakeAudio::restart() {
    listeners_.clear();
    if (onRestarted)
        onRestarted();
}

}  // namespace pimloft
