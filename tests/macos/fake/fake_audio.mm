// SPDX-License-Identifier: MIT
#include "fake_audio.h"

#include "fake_cf.h"

#include <Block.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace pimloft::test::mac {

namespace {

struct Listener {
    AudioObjectID object;
    AudioObjectPropertyAddress address;
    const void *block;  ///< as it was given, and has to be given back
    AudioObjectPropertyListenerBlock copy;
};

std::vector<Listener> listeners;
std::vector<Listener> underWay;
int mainQueue;

std::string describe(const AudioObjectPropertyAddress &address) {
    return fourCharacters(address.mSelector) + ' ' + fourCharacters(address.mScope) + ' ' +
           std::to_string(address.mElement);
}

template <typename Value>
std::string bytesOf(const Value &value) {
    return {reinterpret_cast<const char *>(&value), sizeof value};
}

std::optional<std::string> ofSystem(const std::string &what) {
    const SoundSystem &system = soundSystem();
    if (what == "dOut glob 0")
        return bytesOf(system.output);
    if (what != "dev# glob 0")
        return std::nullopt;
    std::string bytes;
    for (const SoundDevice &device : system.devices)
        bytes += bytesOf(device.id);
    return bytes;
}

/// A text is handed out as an object that its reader owns, so its size can be asked without making it.
std::optional<std::string> ofDevice(const SoundDevice &device, const std::string &what, bool hasToExist) {
    const auto text = [hasToExist](const std::string &value) {
        return bytesOf<CFStringRef>(hasToExist ? makeString(value) : nullptr);
    };
    if (what == "lnam glob 0")
        return text(device.name);
    if (what == "uid  glob 0")
        return text(device.uid);
    if (what == "stm# outp 0")
        return device.hasOutput ? bytesOf(UInt32(1)) : std::string();
    if (what == "vmvc outp 0" && device.volume)
        return bytesOf(Float32(*device.volume));
    if (what == "mute outp 0" && device.muted)
        return bytesOf(*device.muted);
    return std::nullopt;
}

std::optional<std::string> property(AudioObjectID object, const AudioObjectPropertyAddress &address,
                                    bool hasToExist) {
    const std::string what = describe(address);
    if (object == kAudioObjectSystemObject)
        return ofSystem(what);
    for (const SoundDevice &device : soundSystem().devices)
        if (device.id == object)
            return ofDevice(device, what, hasToExist);
    return std::nullopt;
}

void checkQueue(dispatch_queue_t queue) {
    if (queue != dispatch_get_main_queue())
        complain("a listener on another queue than the main one");
}

}  // namespace

SoundSystem &soundSystem() {
    static SoundSystem system;
    return system;
}

SoundDevice &SoundSystem::device(AudioObjectID id) {
    return *std::find_if(devices.begin(), devices.end(), [id](const auto &each) { return each.id == id; });
}

void resetAudio() {
    soundSystem() = {};
    listeners.clear();
    underWay.clear();
}

void tellListenersLater(AudioObjectID object, const std::string &selector) {
    for (const Listener &each : listeners)
        if (each.object == object && fourCharacters(each.address.mSelector) == selector)
            underWay.push_back({each.object, each.address, each.block, Block_copy(each.copy)});
}

void tellNow() {
    for (const Listener &each : std::exchange(underWay, {})) {
        each.copy(1, &each.address);
        Block_release(each.copy);
    }
}

void tellListeners(AudioObjectID object, const std::string &selector) {
    tellListenersLater(object, selector);
    tellNow();
}

int listenerCount() {
    return int(listeners.size());
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

extern "C" {

dispatch_queue_t dispatch_get_main_queue(void) {
    return reinterpret_cast<dispatch_queue_t>(&mainQueue);
}

OSStatus AudioObjectGetPropertyDataSize(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                        UInt32 qualifierSize, const void *, UInt32 *size) {
    if (qualifierSize != 0)
        complain("AudioObjectGetPropertyDataSize: an unexpected qualifier");
    note("size of " + std::to_string(object) + ' ' + describe(*address));
    const auto bytes = property(object, *address, false);
    if (!bytes)
        return kAudioHardwareUnknownPropertyError;
    *size = UInt32(bytes->size());
    auto &system = soundSystem();
    std::erase_if(system.devices, [&](const SoundDevice &each) { return each.id == system.vanishes; });
    return noErr;
}

OSStatus AudioObjectGetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                    UInt32 qualifierSize, const void *, UInt32 *size, void *data) {
    if (qualifierSize != 0)
        complain("AudioObjectGetPropertyData: an unexpected qualifier");
    note("read " + std::to_string(object) + ' ' + describe(*address));
    const auto bytes = property(object, *address, true);
    if (!bytes)
        return kAudioHardwareUnknownPropertyError;
    if (*size < bytes->size()) {
        complain("AudioObjectGetPropertyData: too little room");
        return kAudioHardwareBadObjectError;
    }
    *size = UInt32(bytes->size());
    std::memcpy(data, bytes->data(), bytes->size());
    return noErr;
}

OSStatus AudioObjectSetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                    UInt32 qualifierSize, const void *, UInt32 size, const void *data) {
    if (qualifierSize != 0)
        complain("AudioObjectSetPropertyData: an unexpected qualifier");
    const std::string what = describe(*address);
    if (size != 4 || soundSystem().refuses || !property(object, *address, false)) {
        note("refuse " + std::to_string(object) + ' ' + what);
        return kAudioHardwareBadObjectError;
    }
    UInt32 number = 0;
    Float32 fraction = 0;
    std::memcpy(&number, data, size);
    std::memcpy(&fraction, data, size);
    note("write " + std::to_string(object) + ' ' + what + " = " +
         (what == "vmvc outp 0" ? plain(double(fraction)) : std::to_string(number)) + ", " +
         std::to_string(size) + " bytes");
    if (what == "dOut glob 0")
        soundSystem().output = number;
    else if (what == "mute outp 0")
        soundSystem().device(object).muted = number;
    else if (what == "vmvc outp 0")
        soundSystem().device(object).volume = fraction;
    return noErr;
}

OSStatus AudioObjectAddPropertyListenerBlock(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                             dispatch_queue_t queue, AudioObjectPropertyListenerBlock block) {
    checkQueue(queue);
    if (soundSystem().refuses)
        return kAudioHardwareBadObjectError;
    note("listen to " + std::to_string(object) + ' ' + describe(*address));
    listeners.push_back({object, *address, static_cast<const void *>(block), Block_copy(block)});
    return noErr;
}

OSStatus AudioObjectRemovePropertyListenerBlock(AudioObjectID object,
                                                const AudioObjectPropertyAddress *address,
                                                dispatch_queue_t queue,
                                                AudioObjectPropertyListenerBlock block) {
    checkQueue(queue);
    note("stop listening to " + std::to_string(object) + ' ' + describe(*address));
    const auto found = std::find_if(listeners.begin(), listeners.end(), [&](const Listener &each) {
        return each.object == object && each.block == static_cast<const void *>(block) &&
               describe(each.address) == describe(*address);
    });
    if (found == listeners.end()) {
        complain("AudioObjectRemovePropertyListenerBlock: was never added");
        return kAudioHardwareBadObjectError;
    }
    Block_release(found->copy);
    listeners.erase(found);
    return noErr;
}

}  // extern "C"
