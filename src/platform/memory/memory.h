// SPDX-License-Identifier: MIT
#pragma once

namespace pimloft {

/// Gives memory that was freed, but is still held for this process, back to the system. Any thread.
void returnFreeMemory();

}  // namespace pimloft
