// SPDX-License-Identifier: MIT
#import "fake_ns.h"

using namespace pimloft::test::mac;

@interface FakeApplication : NSRunningApplication {
@public
    const RunningApplication *application_;
}
@end

namespace {

FakeApplication *makeApplication(const RunningApplication &application) {
    FakeApplication *object = [[FakeApplication new] autorelease];
    object->application_ = &application;
    return object;
}

FakeApplication *applicationOf(std::optional<int> process) {
    for (const RunningApplication &each : desktop().applications)
        if (each.process == process)
            return makeApplication(each);
    return nil;
}

}  // namespace

@implementation NSRunningApplication
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)process {
    return applicationOf(process);
}

- (NSString *)localizedName {
    return nil;
}

- (NSString *)bundleIdentifier {
    return nil;
}

- (pid_t)processIdentifier {
    return -1;
}

- (NSApplicationActivationPolicy)activationPolicy {
    return NSApplicationActivationPolicyProhibited;
}

- (NSImage *)icon {
    return nil;
}
@end

@implementation FakeApplication
- (NSString *)localizedName {
    return nsString(application_->name);
}

- (NSString *)bundleIdentifier {
    return nsString(application_->bundleId);
}

- (pid_t)processIdentifier {
    return application_->process;
}

- (NSApplicationActivationPolicy)activationPolicy {
    return NSApplicationActivationPolicy(application_->policy);
}

- (NSImage *)icon {
    return application_->hasIcon ? makeImage(0xff0000ff, NSMakeSize(32, 32)) : nil;
}
@end

@implementation NSWorkspace
+ (NSWorkspace *)sharedWorkspace {
    static NSWorkspace *workspace;
    if (!workspace)
        workspace = [NSWorkspace new];
    return workspace;
}

// Not the default one.
- (NSNotificationCenter *)notificationCenter {
    static NSNotificationCenter *center;
    if (!center)
        center = [NSNotificationCenter new];
    return center;
}

- (NSRunningApplication *)frontmostApplication {
    return applicationOf(desktop().frontProcess);
}

- (NSArray *)runningApplications {
    NSMutableArray *list = [NSMutableArray array];
    for (const RunningApplication &each : desktop().applications)
        [list addObject:makeApplication(each)];
    return list;
}

- (BOOL)accessibilityDisplayShouldIncreaseContrast {
    return desktop().hasHighContrast;
}

- (BOOL)accessibilityDisplayShouldReduceMotion {
    return desktop().reducesMotion;
}

- (NSImage *)iconForFile:(NSString *)path {
    note("icon of " + cppString(path));
    return makeImage(0x00ff00ff, NSMakeSize(32, 32));
}

- (BOOL)openURL:(NSURL *)url {
    note("open " + cppString([url absoluteString]));
    return desktop().opensLinks;
}

- (BOOL)selectFile:(NSString *)path inFileViewerRootedAtPath:(NSString *)root {
    if (!root)
        complain("selectFile: no root");
    note("select " + (path ? cppString(path) : std::string("nothing")) + " rooted at \"" + cppString(root) +
         '"');
    return YES;
}
@end
