// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/mac_geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace pimloft {

/// A screen as the system describes it, in desktop points. A value.
struct MacScreen {
    std::uint32_t number;
    MacRect frame;
    MacRect visibleFrame;
};

/// The one with the menu bar first. Main thread.
std::vector<MacScreen> connectedScreens();

/// The number of the one with the window that has the keyboard. Main thread.
std::optional<std::uint32_t> mainScreen();

}  // namespace pimloft
