// SPDX-License-Identifier: MIT
#include "platform/mac/posted_key.h"

#include "platform/mac/cf_ref.h"

#include <CoreGraphics/CoreGraphics.h>

namespace pimloft {

void postKey(KeyCode key, KeyStroke stroke, std::optional<KeyFlags> flags) {
    const CfRef source(CGEventSourceCreate(kCGEventSourceStateHIDSystemState));
    const CfRef event(CGEventCreateKeyboardEvent(source.get(), CGKeyCode(key), stroke == KeyStroke::down));
    if (!event)
        return;
    if (flags)
        CGEventSetFlags(event.get(), CGEventFlags(*flags));
    CGEventPost(kCGHIDEventTap, event.get());
}

}  // namespace pimloft
