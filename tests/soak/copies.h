// SPDX-License-Identifier: MIT
#pragma once

#include "soak/soak_desk.h"

namespace pimloft::test {

/// Copies something of the next kind - text, rich text, markup, pictures, files, much of it - and waits until
/// it is in the history. Whether it got there.
bool copySomething(SoakDesk &desk);

/// Copies faster than anybody could look.
bool copyInQuickSuccession(SoakDesk &desk);

}  // namespace pimloft::test
