// SPDX-License-Identifier: MIT
#include "platform/events/mac_pointer.h"

#import <AppKit/AppKit.h>

namespace pimloft {

MacPoint pointerLocation() {
    const NSPoint point = [NSEvent mouseLocation];
    return {point.x, point.y};
}

}  // namespace pimloft
