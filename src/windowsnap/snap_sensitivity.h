// SPDX-License-Identifier: MIT
#pragma once

#include "app/settings_keys.h"
#include "platform/preferences/preferences.h"

namespace pimloft {

/// The width of the edge bands in points, as the user has set it. A stored zero means that it was never set.
/// Main thread.
inline double snapSensitivity(const PreferencesService &preferences) {
    constexpr double unset = 0.0;
    constexpr double fallback = 10.0;
    const double stored = preferences.number(SettingsKeys::snapSensitivity);
    return stored == unset ? fallback : stored;
}

}  // namespace pimloft
