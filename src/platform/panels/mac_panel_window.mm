// SPDX-License-Identifier: MIT
#include "platform/panels/mac_panel_window.h"

#import <AppKit/AppKit.h>

/// A panel without a frame, which AppKit would by itself never give the keyboard.
@interface PimloftPanel : NSPanel {
@private
    BOOL takesTyping_;
}
- (void)setTakesTyping:(BOOL)takesTyping;
@end

@implementation PimloftPanel
- (void)setTakesTyping:(BOOL)takesTyping {
    takesTyping_ = takesTyping;
}

- (BOOL)canBecomeKeyWindow {
    return takesTyping_;
}

- (BOOL)canBecomeMainWindow {
    return NO;
}
@end

namespace pimloft {

namespace {

struct PanelTraits {
    NSWindowStyleMask style;
    NSWindowLevel level;
    NSWindowCollectionBehavior behavior;
    BOOL ignoresClicks;
    BOOL hasShadow;
};

PanelTraits traitsOf(PanelKind kind) {
    if (kind == PanelKind::overlay)
        return {NSWindowStyleMaskBorderless, NSFloatingWindowLevel,
                NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorStationary, YES, NO};
    return {NSWindowStyleMaskNonactivatingPanel, NSPopUpMenuWindowLevel,
            NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorTransient, NO, YES};
}

PimloftPanel *makePanel(const PanelTraits &traits) {
    PimloftPanel *panel = [[PimloftPanel alloc] initWithContentRect:NSZeroRect
                                                          styleMask:traits.style
                                                            backing:NSBackingStoreBuffered
                                                              defer:NO];
    [panel setReleasedWhenClosed:NO];
    [panel setLevel:traits.level];
    [panel setOpaque:NO];
    [panel setBackgroundColor:[NSColor clearColor]];
    [panel setHasShadow:traits.hasShadow];
    [panel setIgnoresMouseEvents:traits.ignoresClicks];
    [panel setCollectionBehavior:traits.behavior];
    [panel setAnimationBehavior:NSWindowAnimationBehaviorNone];
    [panel setMovableByWindowBackground:NO];
    // The application is never active, and panels hide with it unless they are told.
    [panel setHidesOnDeactivate:NO];
    return panel;
}

}  // namespace

struct MacPanelWindow::Window {
    PimloftPanel *panel;
    NSView *view;
    id lostTyping;
};

MacPanelWindow::MacPanelWindow(PanelKind kind, std::uintptr_t view, std::function<void()> lostTyping)
    : window_(std::make_unique<Window>()) {
    @autoreleasepool {
        window_->panel = makePanel(traitsOf(kind));
        window_->view = [reinterpret_cast<NSView *>(view) retain];
        // A subview: Qt takes the content view's window for one of its own.
        [[window_->panel contentView] addSubview:window_->view];
        id token = [[NSNotificationCenter defaultCenter] addObserverForName:NSWindowDidResignKeyNotification
                                                                     object:window_->panel
                                                                      queue:nil
                                                                 usingBlock:^(NSNotification *) {
                                                                   lostTyping();
                                                                 }];
        window_->lostTyping = [token retain];
    }
}

MacPanelWindow::~MacPanelWindow() {
    @autoreleasepool {
        [[NSNotificationCenter defaultCenter] removeObserver:window_->lostTyping];
        [window_->lostTyping release];
        [window_->panel orderOut:nil];
        [window_->view removeFromSuperview];
        [window_->view release];
        [window_->panel release];
    }
}

void MacPanelWindow::setFrame(const MacRect &frame) {
    [window_->panel setFrame:NSMakeRect(frame.x, frame.y, frame.width, frame.height) display:YES];
}

void MacPanelWindow::setOpacity(double opacity) {
    [window_->panel setAlphaValue:opacity];
}

void MacPanelWindow::orderFront() {
    [window_->panel orderFrontRegardless];
}

void MacPanelWindow::orderOut() {
    [window_->panel orderOut:nil];
}

void MacPanelWindow::takeTyping() {
    [window_->panel setIgnoresMouseEvents:NO];
    [window_->panel setTakesTyping:YES];
    [window_->panel makeKeyWindow];
}

void MacPanelWindow::giveTypingBack() {
    @autoreleasepool {
        [window_->panel setTakesTyping:NO];
        [window_->panel setIgnoresMouseEvents:YES];
        // A window that has the keyboard gives it back only when it leaves the screen.
        [window_->panel orderOut:nil];
        [window_->panel orderFrontRegardless];
    }
}

void floatWindowOf(std::uintptr_t view) {
    [[reinterpret_cast<NSView *>(view) window] setLevel:NSFloatingWindowLevel];
}

struct MacClickMonitor::Monitor {
    id token;
};

MacClickMonitor::MacClickMonitor(std::function<void()> clicked) : monitor_(std::make_unique<Monitor>()) {
    @autoreleasepool {
        id token = [NSEvent
            addGlobalMonitorForEventsMatchingMask:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown
                                          handler:^(NSEvent *) {
                                            clicked();
                                          }];
        monitor_->token = [token retain];
    }
}

MacClickMonitor::~MacClickMonitor() {
    @autoreleasepool {
        if (monitor_->token)
            [NSEvent removeMonitor:monitor_->token];
        [monitor_->token release];
    }
}

}  // namespace pimloft
