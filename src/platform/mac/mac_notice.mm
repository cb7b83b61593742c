// SPDX-License-Identifier: MIT
#include "platform/mac/mac_notice.h"

#import <AppKit/AppKit.h>

namespace pimloft {

struct MacNotice::Observation {
    NSNotificationCenter *center;
    id token;
};

namespace {

NSNotificationCenter *centerOf(MacNotice::Kind kind) {
    if (kind == MacNotice::Kind::screensChanged)
        return [NSNotificationCenter defaultCenter];
    // The workspace has a center of its own and posts nowhere else.
    return [[NSWorkspace sharedWorkspace] notificationCenter];
}

NSString *nameOf(MacNotice::Kind kind) {
    switch (kind) {
    case MacNotice::Kind::screensChanged:
        return NSApplicationDidChangeScreenParametersNotification;
    case MacNotice::Kind::displayOptionsChanged:
        return NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;
    case MacNotice::Kind::applicationActivated:
        return NSWorkspaceDidActivateApplicationNotification;
    case MacNotice::Kind::sessionLeft:
        return NSWorkspaceSessionDidResignActiveNotification;
    case MacNotice::Kind::screensSlept:
        return NSWorkspaceScreensDidSleepNotification;
    }
    return nil;
}

}  // namespace

MacNotice::MacNotice(Kind kind, std::function<void()> posted)
    : observation_(std::make_unique<Observation>(Observation{centerOf(kind), nil})) {
    @autoreleasepool {
        id token = [observation_->center addObserverForName:nameOf(kind)
                                                     object:nil
                                                      queue:nil
                                                 usingBlock:^(NSNotification *) {
                                                   posted();
                                                 }];
        observation_->token = [token retain];
    }
}

MacNotice::~MacNotice() {
    @autoreleasepool {
        [observation_->center removeObserver:observation_->token];
        [observation_->token release];
    }
}

}  // namespace pimloft
