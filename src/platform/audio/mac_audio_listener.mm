// SPDX-License-Identifier: MIT
#include "platform/audio/mac_audio_property.h"

#include <Block.h>
#include <CoreAudio/CoreAudio.h>
#include <dispatch/dispatch.h>

#include <utility>

namespace pimloft {

struct MacAudioListener::Registration {
    AudioObjectID object;
    AudioObjectPropertyAddress address;
    AudioObjectPropertyListenerBlock block;
    std::shared_ptr<std::function<void()>> changed;  ///< empty from the end on: calls may still be queued
};

std::unique_ptr<MacAudioListener> MacAudioListener::install(const MacAudioProperty &property,
                                                            std::function<void()> changed) {
    const auto shared = std::make_shared<std::function<void()>>(std::move(changed));
    const auto block = Block_copy(^(UInt32, const AudioObjectPropertyAddress *) {
      if (*shared)
          (*shared)();
    });
    const AudioObjectPropertyAddress address{property.selector, property.scope, property.element};
    if (AudioObjectAddPropertyListenerBlock(property.object, &address, dispatch_get_main_queue(), block) !=
        noErr) {
        Block_release(block);
        return nullptr;
    }
    return std::unique_ptr<MacAudioListener>(new MacAudioListener(
        std::make_unique<Registration>(Registration{property.object, address, block, shared})));
}

MacAudioListener::MacAudioListener(std::unique_ptr<Registration> registration)
    : registration_(std::move(registration)) {
}

MacAudioListener::~MacAudioListener() {
    *registration_->changed = nullptr;
    AudioObjectRemovePropertyListenerBlock(registration_->object, &registration_->address,
                                           dispatch_get_main_queue(), registration_->block);
    Block_release(registration_->block);
}

}  // namespace pimloft
