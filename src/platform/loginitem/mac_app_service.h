// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace pimloft {

/// What the system answered when it was asked to start this application at login, or no longer to. A value.
struct MacLoginAnswer {
    enum class Outcome { done, alreadySo, failed } outcome;
    std::string description;  ///< of the failure, in UTF-8
};

// Main thread.
MacLoginAnswer registerMainApp();
MacLoginAnswer unregisterMainApp();

}  // namespace pimloft
