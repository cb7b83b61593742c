// SPDX-License-Identifier: MIT
#include "platform/audio/mac_audio.h"

#include "platform/mac/cf_text.h"

#include <AudioToolbox/AudioToolbox.h>
#include <CoreAudio/CoreAudio.h>

#include <algorithm>

namespace pimloft {

namespace {

constexpr MacAudioProperty ofSystem(std::uint32_t selector) {
    return {kAudioObjectSystemObject, selector, kAudioObjectPropertyScopeGlobal,
            kAudioObjectPropertyElementMain};
}

constexpr MacAudioProperty defaultOutput = ofSystem(kAudioHardwarePropertyDefaultOutputDevice);
constexpr MacAudioProperty allDevices = ofSystem(kAudioHardwarePropertyDevices);
constexpr MacAudioProperty serviceRestarted = ofSystem(kAudioHardwarePropertyServiceRestarted);

constexpr MacAudioProperty outputStreams(AudioDeviceId device) {
    return {std::uint32_t(device), kAudioDevicePropertyStreams, kAudioObjectPropertyScopeOutput,
            kAudioObjectPropertyElementMain};
}
constexpr MacAudioProperty deviceName(AudioDeviceId device) {
    return {std::uint32_t(device), kAudioObjectPropertyName, kAudioObjectPropertyScopeGlobal,
            kAudioObjectPropertyElementMain};
}
constexpr MacAudioProperty deviceUid(AudioDeviceId device) {
    return {std::uint32_t(device), kAudioDevicePropertyDeviceUID, kAudioObjectPropertyScopeGlobal,
            kAudioObjectPropertyElementMain};
}
constexpr MacAudioProperty mainVolume(AudioDeviceId device) {
    return {std::uint32_t(device), kAudioHardwareServiceDeviceProperty_VirtualMainVolume,
            kAudioObjectPropertyScopeOutput, kAudioObjectPropertyElementMain};
}
constexpr MacAudioProperty mute(AudioDeviceId device) {
    return {std::uint32_t(device), kAudioDevicePropertyMute, kAudioObjectPropertyScopeOutput,
            kAudioObjectPropertyElementMain};
}

AudioObjectPropertyAddress addressOf(const MacAudioProperty &property) {
    return {property.selector, property.scope, property.element};
}

/// In bytes; 0 where there is no such property.
UInt32 sizeOf(const MacAudioProperty &property) {
    const AudioObjectPropertyAddress address = addressOf(property);
    UInt32 size = 0;
    return AudioObjectGetPropertyDataSize(property.object, &address, 0, nullptr, &size) == noErr ? size : 0;
}

template <typename Value>
std::optional<Value> read(const MacAudioProperty &property) {
    const AudioObjectPropertyAddress address = addressOf(property);
    Value value{};
    UInt32 size = sizeof value;
    if (AudioObjectGetPropertyData(property.object, &address, 0, nullptr, &size, &value) != noErr ||
        size != sizeof value)
        return std::nullopt;
    return value;
}

std::optional<QString> readText(const MacAudioProperty &property) {
    const CfRef text(read<CFStringRef>(property).value_or(nullptr));
    return text ? std::optional(qtText(text.get())) : std::nullopt;
}

template <typename Value>
bool write(const MacAudioProperty &property, Value value) {
    const AudioObjectPropertyAddress address = addressOf(property);
    return AudioObjectSetPropertyData(property.object, &address, 0, nullptr, sizeof value, &value) == noErr;
}

}  // namespace

MacAudio::MacAudio()
    : restarts_(MacAudioListener::install(serviceRestarted, [this] {
          QMetaObject::invokeMethod(
              &calls_, [this] { handleRestart(); }, Qt::QueuedConnection);
      })) {
}

MacAudio::~MacAudio() = default;

std::optional<AudioDeviceId> MacAudio::defaultOutputDevice() {
    const auto device = read<AudioDeviceID>(defaultOutput);
    if (!device || *device == kAudioObjectUnknown)
        return std::nullopt;
    return AudioDeviceId(*device);
}

std::vector<AudioDeviceId> MacAudio::devices() {
    std::vector<AudioDeviceId> devices(sizeOf(allDevices) / sizeof(AudioDeviceID));
    if (devices.empty())
        return {};
    static_assert(sizeof(AudioDeviceId) == sizeof(AudioDeviceID));
    const AudioObjectPropertyAddress address = addressOf(allDevices);
    auto size = UInt32(devices.size() * sizeof(AudioDeviceID));
    if (AudioObjectGetPropertyData(allDevices.object, &address, 0, nullptr, &size, devices.data()) != noErr)
        return {};
    // One may have gone since the size was asked.
    devices.resize(size / sizeof(AudioDeviceID));
    return devices;
}

bool MacAudio::hasOutput(AudioDeviceId device) {
    return sizeOf(outputStreams(device)) > 0;
}

std::optional<QString> MacAudio::name(AudioDeviceId device) {
    return readText(deviceName(device));
}

std::optional<QString> MacAudio::uid(AudioDeviceId device) {
    return readText(deviceUid(device));
}

std::optional<float> MacAudio::volume(AudioDeviceId device) {
    return read<Float32>(mainVolume(device));
}

std::optional<bool> MacAudio::isMuted(AudioDeviceId device) {
    const auto muted = read<UInt32>(mute(device));
    return muted ? std::optional(*muted != 0) : std::nullopt;
}

bool MacAudio::setVolume(AudioDeviceId device, float volume) {
    return write(mainVolume(device), Float32(std::clamp(volume, 0.0F, 1.0F)));
}

bool MacAudio::setMuted(AudioDeviceId device, bool muted) {
    return write(mute(device), UInt32(muted ? 1 : 0));
}

bool MacAudio::setDefaultOutputDevice(AudioDeviceId device) {
    return write(defaultOutput, AudioDeviceID(device));
}

std::optional<VolumeListenerId> MacAudio::listenToVolume(AudioDeviceId device,
                                                         std::function<void()> changed) {
    if (!volume(device))
        return std::nullopt;
    const VolumeListenerId id{++newestListener_};
    auto system = MacAudioListener::install(mainVolume(device), [this, id] { tell(id); });
    if (!system)
        return std::nullopt;
    listeners_.emplace(id, Listener{device, std::move(changed), std::move(system)});
    return id;
}

bool MacAudio::stopListening(AudioDeviceId device, VolumeListenerId listener) {
    const auto found = listeners_.find(listener);
    if (found == listeners_.end() || found->second.device != device)
        return false;
    listeners_.erase(found);
    return true;
}

void MacAudio::tell(VolumeListenerId listener) {
    QMetaObject::invokeMethod(
        &calls_,
        [this, listener] {
            const auto found = listeners_.find(listener);
            if (found == listeners_.end())
                return;
            const auto changed = found->second.changed;  // which may stop the listening
            changed();
        },
        Qt::QueuedConnection);
}

void MacAudio::handleRestart() {
    listeners_.clear();
    if (onRestarted)
        onRestarted();
}

}  // namespace pimloft
