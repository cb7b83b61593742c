// SPDX-License-Identifier: MIT
#include "platform/scripting/mac_apple_script.h"

#include "platform/mac/ns_text.h"

#import <AppKit/AppKit.h>

namespace pimloft {

namespace {

/// A list's texts in order; of anything else its own text, if it has one.
std::vector<std::string> itemsOf(NSAppleEventDescriptor *answer) {
    std::vector<std::string> items;
    const NSInteger count = [answer numberOfItems];
    for (NSInteger index = 1; index <= count; ++index)
        if (NSString *text = [[answer descriptorAtIndex:index] stringValue])
            items.push_back(plainText(text));
    if (count == 0)
        if (NSString *text = [answer stringValue])
            items.push_back(plainText(text));
    return items;
}

std::string sentence(NSDictionary *error) {
    NSString *message = [error objectForKey:NSAppleScriptErrorMessage];
    return message ? plainText(message) : "The script failed.";
}

}  // namespace

MacScriptAnswer runAppleScript(const std::string &text) {
    @autoreleasepool {
        NSAppleScript *script = [[[NSAppleScript alloc] initWithSource:foundationText(text)] autorelease];
        if (!script)
            return {{}, "The script cannot be read."};
        NSDictionary *error = nil;
        NSAppleEventDescriptor *answer = [script executeAndReturnError:&error];
        if (!answer)
            return {{}, sentence(error)};
        return {itemsOf(answer), std::nullopt};
    }
}

}  // namespace pimloft
