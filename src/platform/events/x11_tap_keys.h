// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/tap_keys.h"
#include "platform/x11/x11_keymap.h"

namespace pimloft {

/// What the server's map says of the keys, for the tap. Pure; any thread.
TapKeys tapKeys(const X11Keymap &map);

}  // namespace pimloft
