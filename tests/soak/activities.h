// SPDX-License-Identifier: MIT
#pragma once

#include "soak/soak_desk.h"

#include <functional>
#include <vector>

namespace pimloft::test {

/// Something that a user does again and again. It ends as it began: nothing open, no key down.
struct Activity {
    const char *name;
    int times;  ///< in each round of all
    /// Whether what it is about really happened.
    std::function<bool(SoakDesk &)> perform;
};

/// Everything that the program serves.
const std::vector<Activity> &activities();

}  // namespace pimloft::test
