// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"
#include "windowsnap/snap_layout.h"
#include "windowsnap/snap_zone.h"

#include <array>
#include <variant>

namespace pimloft {

/// Puts a window back to where it was before it was snapped last.
struct RestorePreviousFrame {};

/// A key that places the focused window while the snap modifiers are held. A value; any thread.
struct SnapShortcut {
    KeyCode key;
    std::variant<SnapZone, RestorePreviousFrame, SnapLayout> action;
};

inline constexpr CarbonModifiers snapModifiers = CarbonModifiers::control | CarbonModifiers::command;

/// In the order in which they are registered.
inline constexpr std::array<SnapShortcut, 10> snapShortcuts{{
    {Key::leftArrow, SnapZone::left},
    {Key::rightArrow, SnapZone::right},
    {Key::upArrow, SnapZone::top},
    {Key::downArrow, RestorePreviousFrame{}},
    {Key::digit1, SnapLayout::halfHalf},
    {Key::digit2, SnapLayout::sevenThree},
    {Key::digit3, SnapLayout::threeSeven},
    {Key::digit4, SnapLayout::thirds},
    {Key::digit5, SnapLayout::halfQuarters},
    {Key::digit6, SnapLayout::quarters},
}};

}  // namespace pimloft
