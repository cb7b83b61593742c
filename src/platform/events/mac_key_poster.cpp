// SPDX-License-Identifier: MIT
#include "platform/events/mac_key_poster.h"

#include "platform/mac/posted_key.h"

namespace pimloft {

MacKeyPoster::MacKeyPoster(std::function<void()> endTyping) : endTyping_(std::move(endTyping)) {
}

void MacKeyPoster::post(KeyCode key, KeyFlags modifiers) {
    endTyping_();
    postKey(key, KeyStroke::down, modifiers);
    postKey(key, KeyStroke::up, modifiers);
}

}  // namespace pimloft
