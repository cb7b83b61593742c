// SPDX-License-Identifier: MIT
#import "fake_ns.h"

#include <Block.h>

#include <algorithm>

// Foundation declares these for debugging only, but always has them.
extern "C" {
extern BOOL GSDebugAllocationActive(BOOL active);
extern int GSDebugAllocationCount(Class counted);
}

namespace pimloft::test::mac {

namespace {

/// An observer of a property of the application, which holds it weakly.
struct Observer {
    id object;
    std::string path;
};
std::vector<Observer> observers;
std::vector<id> monitors;
std::vector<id> tokens;  ///< owned, as a centre owns them

void post(NSNotificationCenter *center, NSString *name) {
    @autoreleasepool {
        [center postNotificationName:name object:nil];
    }
}

}  // namespace

Desktop &desktop() {
    static Desktop desktop;
    return desktop;
}

void resetAppKit() {
    GSDebugAllocationActive(YES);
    desktop() = {};
    observers.clear();
    monitors.clear();
    resetBoard();
    resetDrawing();
    resetPanels();
    resetScripts();
}

NSString *nsString(const std::string &text) {
    return [NSString stringWithUTF8String:text.c_str()];
}

NSString *nsString(const std::optional<std::string> &text) {
    return text ? nsString(*text) : nil;
}

std::string cppString(NSString *text) {
    return text ? std::string([text UTF8String]) : std::string();
}

void changeAppearance(bool isDark) {
    desktop().isDark = isDark;
    touchAppearance();
}

void touchAppearance() {
    @autoreleasepool {
        const auto now = observers;
        for (const Observer &each : now)
            [each.object observeValueForKeyPath:nsString(each.path)
                                       ofObject:[NSApplication sharedApplication]
                                         change:[NSDictionary dictionary]
                                        context:nullptr];
    }
}

void changeScreens(std::vector<Screen> screens) {
    desktop().screens = std::move(screens);
    post([NSNotificationCenter defaultCenter], NSApplicationDidChangeScreenParametersNotification);
}

void changeDisplayOptions(bool highContrast, bool reducedMotion) {
    desktop().hasHighContrast = highContrast;
    desktop().reducesMotion = reducedMotion;
    post([[NSWorkspace sharedWorkspace] notificationCenter],
         NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification);
}

void activateApplication(int process) {
    desktop().frontProcess = process;
    post([[NSWorkspace sharedWorkspace] notificationCenter], NSWorkspaceDidActivateApplicationNotification);
}

void leaveSession() {
    post([[NSWorkspace sharedWorkspace] notificationCenter], NSWorkspaceSessionDidResignActiveNotification);
}

void sleepScreens() {
    post([[NSWorkspace sharedWorkspace] notificationCenter], NSWorkspaceScreensDidSleepNotification);
}

int registrations() {
    return int(observers.size() + monitors.size() + tokens.size());
}

int liveInstances(const std::string &className) {
    @autoreleasepool {
        Class known = NSClassFromString(nsString(className));
        if (!known)
            complain("no such class: " + className);
        return GSDebugAllocationCount(known);
    }
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

extern "C" {
NSString *const NSApplicationDidChangeScreenParametersNotification =
    @"NSApplicationDidChangeScreenParameters";
NSString *const NSWorkspaceDidActivateApplicationNotification = @"NSWorkspaceDidActivateApplication";
NSString *const NSWorkspaceSessionDidResignActiveNotification = @"NSWorkspaceSessionDidResignActive";
NSString *const NSWorkspaceScreensDidSleepNotification = @"NSWorkspaceScreensDidSleep";
NSString *const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification =
    @"NSWorkspaceAccessibilityDisplayOptionsDidChange";
NSAppearanceName const NSAppearanceNameAqua = @"NSAppearanceNameAqua";
NSAppearanceName const NSAppearanceNameDarkAqua = @"NSAppearanceNameDarkAqua";
}

/// What an observation with a block is known by. GNUstep's own is never let go.
@interface FakeToken : NSObject {
@public
    void (^block_)(NSNotification *);
}
- (void)take:(NSNotification *)notice;
@end

@implementation FakeToken
- (void)take:(NSNotification *)notice {
    block_(notice);
}

- (void)dealloc {
    Block_release(block_);
    [super dealloc];
}
@end

@implementation NSNotificationCenter (Owning)
- (id)addObserverForName:(NSString *)name
                  object:(id)object
                   queue:(NSOperationQueue *)queue
              usingBlock:(void (^)(NSNotification *))block {
    if (!name || queue)
        complain("addObserverForName: for everything, or later");
    FakeToken *token = [FakeToken new];
    token->block_ = Block_copy(block);
    tokens.push_back(token);
    [self addObserver:token selector:@selector(take:) name:name object:object];
    return [[token retain] autorelease];
}

- (void)removeObserver:(id)observer {
    [self removeObserver:observer name:nil object:nil];
    const auto found = std::find(tokens.begin(), tokens.end(), observer);
    if (found == tokens.end())
        return;
    tokens.erase(found);
    [observer release];
}
@end

@implementation NSAppearance
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray *)names {
    NSAppearanceName wanted = desktop().isDark ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua;
    return [names containsObject:wanted] ? wanted : nil;
}
@end

@implementation NSApplication
+ (NSApplication *)sharedApplication {
    static NSApplication *application;
    if (!application)
        application = [NSApplication new];
    return application;
}

- (NSAppearance *)effectiveAppearance {
    return [[NSAppearance new] autorelease];
}

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
    note("activation policy " + std::to_string(policy));
    return YES;
}

- (void)addObserver:(id)observer
         forKeyPath:(NSString *)path
            options:(NSKeyValueObservingOptions)options
            context:(void *)context {
    (void)options;
    (void)context;
    note("observe " + cppString(path));
    observers.push_back({observer, cppString(path)});
}

- (void)removeObserver:(id)observer forKeyPath:(NSString *)path {
    const auto found = std::find_if(observers.begin(), observers.end(), [&](const Observer &each) {
        return each.object == observer && each.path == cppString(path);
    });
    if (found == observers.end())
        return complain("removeObserver: did not observe this");
    observers.erase(found);
}
@end

@implementation NSColor
+ (NSColor *)clearColor {
    static NSColor *color;
    if (!color)
        color = [NSColor new];
    return color;
}
@end

/// What a global monitor is known by.
@interface FakeMonitor : NSObject {
@public
    NSEventMask mask_;
    void (^handler_)(NSEvent *);
}
@end

@implementation FakeMonitor
- (void)dealloc {
    if (std::find(monitors.begin(), monitors.end(), self) != monitors.end())
        complain("a monitor is let go that was never removed");
    Block_release(handler_);
    [super dealloc];
}
@end

@implementation NSEvent
+ (NSPoint)mouseLocation {
    return NSMakePoint(desktop().pointerX, desktop().pointerY);
}

+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent *event))handler {
    note("monitor events " + std::to_string(mask));
    FakeMonitor *monitor = [[FakeMonitor new] autorelease];
    monitor->mask_ = mask;
    monitor->handler_ = Block_copy(handler);
    monitors.push_back(monitor);
    return monitor;
}

+ (void)removeMonitor:(id)monitor {
    const auto found = std::find(monitors.begin(), monitors.end(), monitor);
    if (found == monitors.end())
        return complain("removeMonitor: is none");
    note("remove monitor");
    monitors.erase(found);
}
@end

namespace pimloft::test::mac {

void clickElsewhere(int button) {
    @autoreleasepool {
        // Left down is event 1, right down 3, others 25.
        const int type = button == 1 ? 1 : button == 2 ? 3 : 25;
        const auto now = monitors;
        for (FakeMonitor *each : now)
            if (each->mask_ & (NSEventMask(1) << type))
                each->handler_(nil);
    }
}

}  // namespace pimloft::test::mac

@interface FakeScreen : NSScreen {
@public
    Screen *screen_;
}
@end

namespace {

NSRect rectOf(const Rect &rect) {
    return NSMakeRect(rect.x, rect.y, rect.width, rect.height);
}

FakeScreen *makeScreen(Screen &screen) {
    FakeScreen *object = [[FakeScreen new] autorelease];
    object->screen_ = &screen;
    return object;
}

}  // namespace

@implementation NSScreen
+ (NSArray *)screens {
    note("list screens");
    NSMutableArray *list = [NSMutableArray array];
    for (Screen &each : desktop().screens)
        [list addObject:makeScreen(each)];
    return list;
}

+ (NSScreen *)mainScreen {
    for (Screen &each : desktop().screens)
        if (each.number == desktop().mainScreen)
            return makeScreen(each);
    return nil;
}

- (NSRect)frame {
    return NSZeroRect;
}

- (NSRect)visibleFrame {
    return NSZeroRect;
}

- (NSDictionary *)deviceDescription {
    return nil;
}
@end

@implementation FakeScreen
- (NSRect)frame {
    return rectOf(screen_->frame);
}

- (NSRect)visibleFrame {
    return rectOf(screen_->visible);
}

- (NSDictionary *)deviceDescription {
    return [NSDictionary dictionaryWithObject:[NSNumber numberWithUnsignedInt:screen_->number]
                                       forKey:@"NSScreenNumber"];
}
@end
