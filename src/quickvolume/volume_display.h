// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

// How the views show a volume. Pure; any thread.

/// Name of the symbol for the volume (0 to 1) of the whole system.
QString systemVolumeSymbol(float volume, bool muted);

/// In whole percent, cut off: "99%".
QString volumeText(float volume);

}  // namespace pimloft
