// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

/// The shortcuts of the clipboard history.
namespace pimloft {

/// A key with the modifiers that make it one. A value; any thread.
struct ClipboardShortcut {
    KeyCode key;
    CarbonModifiers modifiers;
};

inline constexpr ClipboardShortcut popupShortcut{Key::v, CarbonModifiers::command | CarbonModifiers::shift};
inline constexpr ClipboardShortcut plainTextShortcut{Key::v,
                                                     popupShortcut.modifiers | CarbonModifiers::control};

}  // namespace pimloft
