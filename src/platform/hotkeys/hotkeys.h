// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <cstdint>
#include <functional>

namespace pimloft {

/// Tells one granted combination from another.
enum class HotkeyId : std::uint32_t {};

/// Global keyboard shortcuts of this desktop. Main thread.
class HotkeyService {
public:
    virtual ~HotkeyService() = default;

    /// Asks the desktop for one combination. False when another program owns it. A granted combination stays
    /// granted until the process ends; asked for again, a press reports the newest id only.
    [[nodiscard]] virtual bool grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) = 0;

    /// Called on the main thread once per press, repeats of a held key left out.
    std::function<void(HotkeyId)> onPressed;
};

}  // namespace pimloft
