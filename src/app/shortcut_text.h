// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <QString>

namespace pimloft {

/// A shortcut in the words of a Linux keyboard, such as "Control+Super+Left". Pure; any thread.
QString shortcutText(KeyCode key, CarbonModifiers modifiers);

}  // namespace pimloft
