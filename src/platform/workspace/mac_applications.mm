// SPDX-License-Identifier: MIT
#include "platform/workspace/mac_applications.h"

#include "platform/mac/ns_text.h"

#import <AppKit/AppKit.h>

namespace pimloft {

namespace {

MacApplication::Policy policyOf(NSRunningApplication *application) {
    switch ([application activationPolicy]) {
    case NSApplicationActivationPolicyRegular:
        return MacApplication::Policy::regular;
    case NSApplicationActivationPolicyAccessory:
        return MacApplication::Policy::accessory;
    case NSApplicationActivationPolicyProhibited:
        break;
    }
    return MacApplication::Policy::prohibited;
}

MacApplication plain(NSRunningApplication *application) {
    MacApplication result{plainText([application localizedName]), std::nullopt,
                          [application processIdentifier], policyOf(application)};
    if (NSString *bundleId = [application bundleIdentifier])
        result.bundleId = plainText(bundleId);
    return result;
}

}  // namespace

std::optional<MacApplication> frontApplication() {
    @autoreleasepool {
        NSRunningApplication *front = [[NSWorkspace sharedWorkspace] frontmostApplication];
        if (!front)
            return std::nullopt;
        return plain(front);
    }
}

std::vector<MacApplication> launchedApplications() {
    @autoreleasepool {
        std::vector<MacApplication> applications;
        for (NSRunningApplication *application in [[NSWorkspace sharedWorkspace] runningApplications])
            applications.push_back(plain(application));
        return applications;
    }
}

bool openLink(const std::string &url) {
    @autoreleasepool {
        NSURL *link = [NSURL URLWithString:foundationText(url)];
        return link && [[NSWorkspace sharedWorkspace] openURL:link];
    }
}

void showInFileManager(const std::optional<std::string> &path, const std::string &folder) {
    @autoreleasepool {
        [[NSWorkspace sharedWorkspace] selectFile:path ? foundationText(*path) : nil
                         inFileViewerRootedAtPath:foundationText(folder)];
    }
}

}  // namespace pimloft
