// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace pimloft {

/// What the tap and its guard agree on: the guard is started with the number of a window of the tap's
/// connection as its argument and asks by a byte on this descriptor; the tap answers by one.
inline constexpr int guardChannel = 3;

/// How long an answer may take, and the least time between two questions.
inline constexpr std::chrono::milliseconds guardPatience{1000};

}  // namespace pimloft
