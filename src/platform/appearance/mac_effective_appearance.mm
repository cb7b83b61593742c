// SPDX-License-Identifier: MIT
#include "platform/appearance/mac_effective_appearance.h"

#import <AppKit/AppKit.h>

/// What the application tells of its appearance, for one owner.
@interface PimloftAppearanceObserver : NSObject {
@private
    const std::function<void()> *changed_;
}
- (instancetype)initWithHandler:(const std::function<void()> *)changed;
@end

@implementation PimloftAppearanceObserver
- (instancetype)initWithHandler:(const std::function<void()> *)changed {
    self = [super init];
    if (self)
        changed_ = changed;
    return self;
}

- (void)observeValueForKeyPath:(NSString *)keyPath
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context {
    (void)keyPath;
    (void)object;
    (void)change;
    (void)context;
    (*changed_)();
}
@end

namespace pimloft {

namespace {

NSString *const keyPath = @"effectiveAppearance";

}  // namespace

struct MacAppearanceObservation::Observer {
    std::function<void()> changed;
    PimloftAppearanceObserver *object;
};

bool effectiveAppearanceIsDark() {
    @autoreleasepool {
        NSArray *looks = [NSArray arrayWithObjects:NSAppearanceNameAqua, NSAppearanceNameDarkAqua, nil];
        NSAppearance *appearance = [[NSApplication sharedApplication] effectiveAppearance];
        NSAppearanceName nearest = [appearance bestMatchFromAppearancesWithNames:looks];
        return [nearest isEqualToString:NSAppearanceNameDarkAqua];
    }
}

bool systemIncreasesContrast() {
    @autoreleasepool {
        return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldIncreaseContrast];
    }
}

bool systemReducesMotion() {
    @autoreleasepool {
        return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion];
    }
}

MacAppearanceObservation::MacAppearanceObservation(std::function<void()> changed)
    : observer_(std::make_unique<Observer>(Observer{std::move(changed), nil})) {
    @autoreleasepool {
        observer_->object = [[PimloftAppearanceObserver alloc] initWithHandler:&observer_->changed];
        [[NSApplication sharedApplication] addObserver:observer_->object
                                            forKeyPath:keyPath
                                               options:0
                                               context:nullptr];
    }
}

MacAppearanceObservation::~MacAppearanceObservation() {
    @autoreleasepool {
        [[NSApplication sharedApplication] removeObserver:observer_->object forKeyPath:keyPath];
        [observer_->object release];
    }
}

}  // namespace pimloft
