// SPDX-License-Identifier: MIT
#include "platform/displays/mac_screens.h"

#import <AppKit/AppKit.h>

namespace pimloft {

namespace {

std::uint32_t numberOf(NSScreen *screen) {
    NSNumber *number = [[screen deviceDescription] objectForKey:@"NSScreenNumber"];
    return [number unsignedIntValue];
}

MacRect plain(NSRect rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

}  // namespace

std::vector<MacScreen> connectedScreens() {
    @autoreleasepool {
        std::vector<MacScreen> screens;
        for (NSScreen *screen in [NSScreen screens])
            screens.push_back({numberOf(screen), plain([screen frame]), plain([screen visibleFrame])});
        return screens;
    }
}

std::optional<std::uint32_t> mainScreen() {
    @autoreleasepool {
        NSScreen *screen = [NSScreen mainScreen];
        if (!screen)
            return std::nullopt;
        return numberOf(screen);
    }
}

}  // namespace pimloft
