// SPDX-License-Identifier: MIT
#pragma once

namespace pimloft {

/// Gives memory that was freed, but is still held for this process, back to the system. Any thread.
void returnFreeMemory();

/// From now on a crash leaves no picture of this process's memory on the disk: what was copied and typed is
/// in it. Holds for programs that are started later, too; they can lift it. Any thread.
void forbidCoreDumps();

}  // namespace pimloft
