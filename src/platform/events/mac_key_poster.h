// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_poster.h"

#include <functional>

namespace pimloft {

/// Types at the place where the hardware's events come in. Main thread.
class MacKeyPoster final : public KeyPoster {
public:
    /// `endTyping` takes the keyboard back from a panel that holds it.
    explicit MacKeyPoster(std::function<void()> endTyping);

    void post(KeyCode key, KeyFlags modifiers) override;

private:
    std::function<void()> endTyping_;
};

}  // namespace pimloft
