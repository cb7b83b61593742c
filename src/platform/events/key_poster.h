// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

namespace pimloft {

/// Types for the user. Main thread.
class KeyPoster {
public:
    virtual ~KeyPoster() = default;

    /// Presses and releases one key with exactly these modifiers in the program in front, whatever the user
    /// holds down meanwhile. Command is the platform's own shortcut key, so that Command and V pastes.
    /// A panel that holds the keyboard gives it back first. Without permission nothing happens.
    virtual void post(KeyCode key, KeyFlags modifiers) = 0;
};

}  // namespace pimloft
