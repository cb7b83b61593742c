// SPDX-License-Identifier: MIT
#pragma once

namespace pimloft {

/// Takes the application out of the Dock and the menu bar: it lives beside the clock only. Main thread, with
/// the application in place.
void becomeAccessory();

}  // namespace pimloft
