// SPDX-License-Identifier: MIT
#pragma once

#include <CoreGraphics/CoreGraphics.h>

namespace pimloft::test::mac {

/// Whether the user lets this process see and send events.
void setMayTap(bool may);
void setMayPost(bool may);
void setEventsCanBeMade(bool can);

/// What a key event was when it had passed every tap.
struct Delivered {
    bool isSwallowed = false;
    std::int64_t key = 0;
    std::uint64_t flags = 0;

    friend bool operator==(const Delivered &, const Delivered &) = default;
};
Delivered deliverKey(CGEventType type, std::int64_t key, std::uint64_t flags);
void deliverMouse(CGEventType type, double x, double y);

/// The system ends every tap and tells it why.
void disableTaps(CGEventType reason);
/// How many taps there are on the main run loop, enabled.
int runningTaps();

}  // namespace pimloft::test::mac
