// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <optional>

namespace pimloft {

enum class KeyStroke { down, up };

/// Sends one key event as if the hardware had. With `flags`, exactly these modifiers are held in it, whatever
/// the user holds. Does nothing where the event cannot be made. Main thread.
void postKey(KeyCode key, KeyStroke stroke, std::optional<KeyFlags> flags = std::nullopt);

}  // namespace pimloft
