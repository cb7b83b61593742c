// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/mac_geometry.h"

namespace pimloft {

/// Where the pointer is, in desktop points. Main thread.
MacPoint pointerLocation();

}  // namespace pimloft
