// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/cf_ref.h"

#include <CoreGraphics/CoreGraphics.h>

#include <memory>

namespace pimloft {

/// A tap on the events of the hardware, before any program has seen them, on the main run loop. Destroying it
/// ends it; no event follows. Main thread.
class EventTap {
public:
    /// `callback` is called with `owner` for every event of `events`, also while a menu is open or a window
    /// is moved. Nothing without the user's permission.
    static std::unique_ptr<EventTap> install(CGEventTapOptions options, CGEventMask events,
                                             CGEventTapCallBack callback, void *owner);
    ~EventTap();
    EventTap(const EventTap &) = delete;
    EventTap &operator=(const EventTap &) = delete;

    /// The system ends a tap that is slow, and while the user secures the keyboard.
    bool isEnabled() const;
    void enable();

private:
    EventTap(CfRef<CFMachPortRef> port, CfRef<CFRunLoopSourceRef> source);

    const CfRef<CFMachPortRef> port_;
    const CfRef<CFRunLoopSourceRef> source_;
};

}  // namespace pimloft
