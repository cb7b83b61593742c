// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/displays.h"

#include <QRect>

#include <vector>

namespace pimloft {

/// A monitor as RandR lists it. A value.
struct Monitor {
    DisplayId id{};
    QRect frame;  ///< native pixels of the root
    bool isPrimary = false;
};

/// Brings the primary monitor to the front: the one that is marked so, else the one at the root's origin. The
/// others keep their order. Drops what shows nothing of its own: empty monitors and mirrors. Pure.
std::vector<Monitor> inDisplayOrder(std::vector<Monitor> monitors);

}  // namespace pimloft
