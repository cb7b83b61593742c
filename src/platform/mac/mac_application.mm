// SPDX-License-Identifier: MIT
#include "platform/mac/mac_application.h"

#import <AppKit/AppKit.h>

namespace pimloft {

void becomeAccessory() {
    @autoreleasepool {
        [[NSApplication sharedApplication] setActivationPolicy:NSApplicationActivationPolicyAccessory];
    }
}

}  // namespace pimloft
