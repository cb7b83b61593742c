// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/hotkeys.h"

#include <vector>

namespace pimloft {

/// Hotkeys of the Carbon event manager, which are positions on the keyboard. Main thread.
///
/// The system knows a combination by the id that it was first granted under; nothing is ever given back to
/// it before the process ends.
class MacHotkeys final : public HotkeyService {
public:
    MacHotkeys();
    ~MacHotkeys() override;
    MacHotkeys(const MacHotkeys &) = delete;
    MacHotkeys &operator=(const MacHotkeys &) = delete;

    bool grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) override;

private:
    struct Callback;
    struct Hotkey {
        KeyCode key;
        CarbonModifiers modifiers;
        HotkeyId first;   ///< as the system knows it
        HotkeyId newest;  ///< as whoever asked last does
    };

    void press(HotkeyId first);

    std::vector<Hotkey> hotkeys_;
    void *handler_ = nullptr;  ///< the installed event handler
};

}  // namespace pimloft
