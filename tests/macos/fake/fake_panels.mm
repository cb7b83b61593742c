// SPDX-License-Identifier: MIT
#import "fake_ns.h"

#include <map>
#include <utility>

using namespace pimloft::test::mac;

namespace {

struct Known {
    int number = 0;
    PanelState state;
    NSView *content = nil;
};
std::map<const void *, Known> windows;
std::map<const void *, std::pair<NSView *, int>> views;  // of a view: what it is in, and how many are in it
int newest = 0;

std::string nameOf(const void *window) {
    return "panel " + std::to_string(windows[window].number) + ": ";
}

}  // namespace

extern "C" {
NSString *const NSWindowDidResignKeyNotification = @"NSWindowDidResignKey";
}

@implementation NSView
- (void)addSubview:(NSView *)view {
    [view removeFromSuperview];
    views[view].first = self;
    ++views[self].second;
    [view retain];
}

- (void)removeFromSuperview {
    NSView *around = views[self].first;
    if (!around)
        return;
    --views[around].second;
    views[self].first = nil;
    [self release];
}

- (NSWindow *)window {
    NSView *outermost = self;
    while (NSView *around = views[outermost].first)
        outermost = around;
    for (const auto &[window, known] : windows)
        if (known.content == outermost)
            return reinterpret_cast<NSWindow *>(const_cast<void *>(window));
    return nil;
}

- (void)dealloc {
    if (views[self].second)
        complain("a view is gone before what is in it");
    views.erase(self);
    [super dealloc];
}
@end

@interface NSWindow (Keyboard)
- (void)resignKey;
@end

@implementation NSWindow
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer {
    self = [super init];
    if (!self)
        return nil;
    Known &known = windows[self];
    known.number = ++newest;
    known.content = [NSView new];
    known.state.style = long(style);
    known.state.backing = long(backing);
    known.state.isDeferred = defer;
    known.state.frame = {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
    note(nameOf(self) + "create style " + std::to_string(style));
    return self;
}

- (void)dealloc {
    Known &known = windows[self];
    if (known.state.isShown)
        complain("a window is let go while it is on the screen");
    [known.content release];
    windows.erase(self);
    [super dealloc];
}

- (NSView *)contentView {
    return windows[self].content;
}

- (BOOL)canBecomeKeyWindow {
    return (windows[self].state.style & NSWindowStyleMaskTitled) != 0;
}

- (BOOL)canBecomeMainWindow {
    return [self canBecomeKeyWindow];
}

- (void)makeKeyWindow {
    PanelState &state = windows[self].state;
    note(nameOf(self) + "make key");
    if (!state.isShown)
        complain("makeKeyWindow: is not on the screen");
    if ([self canBecomeMainWindow])
        complain("makeKeyWindow: would become the main window");
    if ([self canBecomeKeyWindow])
        state.isKey = true;
}

- (void)resignKey {
    if (!std::exchange(windows[self].state.isKey, false))
        return;
    note(nameOf(self) + "is key no more");
    [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidResignKeyNotification object:self];
}

- (void)orderFrontRegardless {
    note(nameOf(self) + "order front");
    windows[self].state.isShown = true;
}

- (void)orderOut:(id)sender {
    (void)sender;
    if (!windows[self].state.isShown)
        return;
    note(nameOf(self) + "order out");
    windows[self].state.isShown = false;
    [self resignKey];
}

- (void)setAlphaValue:(CGFloat)alpha {
    note(nameOf(self) + "alpha " + plain(alpha));
    windows[self].state.alpha = alpha;
}

- (void)setFrame:(NSRect)frame display:(BOOL)display {
    if (!display)
        complain("setFrame: is not displayed");
    note(nameOf(self) + "frame " + plain(frame.origin.x) + ' ' + plain(frame.origin.y) + ' ' +
         plain(frame.size.width) + ' ' + plain(frame.size.height));
    windows[self].state.frame = {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height};
}

- (void)setAnimationBehavior:(NSWindowAnimationBehavior)behavior {
    windows[self].state.animation = long(behavior);
}

- (void)setBackgroundColor:(NSColor *)color {
    windows[self].state.hasClearBackground = color == [NSColor clearColor];
}

- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior {
    windows[self].state.behavior = behavior;
}

- (void)setHasShadow:(BOOL)hasShadow {
    windows[self].state.hasShadow = hasShadow;
}

- (void)setHidesOnDeactivate:(BOOL)hides {
    windows[self].state.hidesWithApplication = hides;
}

- (void)setIgnoresMouseEvents:(BOOL)ignores {
    windows[self].state.ignoresClicks = ignores;
}

- (void)setLevel:(NSWindowLevel)level {
    windows[self].state.level = level;
}

- (void)setMovableByWindowBackground:(BOOL)movable {
    windows[self].state.movesByBackground = movable;
}

- (void)setOpaque:(BOOL)opaque {
    windows[self].state.isOpaque = opaque;
}

- (void)setReleasedWhenClosed:(BOOL)released {
    windows[self].state.isReleasedWhenClosed = released;
}
@end

@implementation NSPanel
@end

namespace pimloft::test::mac {

void resetPanels() {
    newest = 0;
}

std::optional<PanelState> panel(int number) {
    for (auto &[window, known] : windows) {
        if (known.number != number)
            continue;
        known.state.subviews = views[known.content].second;
        return known.state;
    }
    return std::nullopt;
}

void makeAnotherWindowKey() {
    @autoreleasepool {
        for (auto &[window, known] : std::map(windows))
            [reinterpret_cast<NSWindow *>(const_cast<void *>(window)) resignKey];
    }
}

std::uintptr_t makeView() {
    return reinterpret_cast<std::uintptr_t>([NSView new]);
}

void releaseView(std::uintptr_t view) {
    [reinterpret_cast<NSView *>(view) release];
}

std::uintptr_t makeWindow(long level) {
    NSWindow *window = [[NSWindow alloc] initWithContentRect:NSZeroRect
                                                   styleMask:NSWindowStyleMaskTitled
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];
    [window setLevel:level];
    return reinterpret_cast<std::uintptr_t>([window contentView]);
}

void releaseWindow(std::uintptr_t view) {
    [[reinterpret_cast<NSView *>(view) window] release];
}

}  // namespace pimloft::test::mac
