// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

// The scripts that ask the file manager. Pure; any thread.

/// The text that answers the paths of the selected files, in the file manager's order.
QString finderSelectionScript();

/// The text that answers the path of the folder that the front window shows, or of the desktop.
QString finderTargetScript();

}  // namespace pimloft
