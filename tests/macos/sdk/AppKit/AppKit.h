// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#import <Foundation/Foundation.h>

#include <CoreGraphics/CoreGraphics.h>

@class NSAppearance, NSColor, NSEvent, NSGraphicsContext, NSImage, NSView, NSWindow;

#ifndef __APPLE__
// GNUstep has these classes without the operations.
extern "C" {
extern NSString *const NSAppleScriptErrorMessage;
}
@interface NSAppleEventDescriptor (Answers)
- (NSInteger)numberOfItems;
- (NSAppleEventDescriptor *)descriptorAtIndex:(NSInteger)index;
- (NSString *)stringValue;
@end
@interface NSAppleScript (Running)
- (instancetype)initWithSource:(NSString *)source;
- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)error;
@end
#endif

typedef NSString *NSPasteboardType;
typedef NSString *NSPasteboardReadingOptionKey;
typedef NSString *NSAppearanceName;
typedef NSInteger NSWindowLevel;

extern "C" {
extern NSPasteboardType const NSPasteboardTypeString;
extern NSPasteboardType const NSPasteboardTypePNG;
extern NSPasteboardType const NSPasteboardTypeTIFF;
extern NSPasteboardType const NSPasteboardTypeRTF;
extern NSPasteboardType const NSPasteboardTypeHTML;
extern NSPasteboardReadingOptionKey const NSPasteboardURLReadingFileURLsOnlyKey;
extern NSAppearanceName const NSAppearanceNameAqua;
extern NSAppearanceName const NSAppearanceNameDarkAqua;
extern NSString *const NSApplicationDidChangeScreenParametersNotification;
extern NSString *const NSWindowDidResignKeyNotification;
extern NSString *const NSWorkspaceDidActivateApplicationNotification;
extern NSString *const NSWorkspaceSessionDidResignActiveNotification;
extern NSString *const NSWorkspaceScreensDidSleepNotification;
extern NSString *const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;
}

typedef NSUInteger NSWindowStyleMask;
enum : NSUInteger {
    NSWindowStyleMaskBorderless = 0,
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskNonactivatingPanel = 1 << 7,
};
typedef enum : NSUInteger { NSBackingStoreBuffered = 2 } NSBackingStoreType;
enum : NSInteger { NSNormalWindowLevel = 0, NSFloatingWindowLevel = 3, NSPopUpMenuWindowLevel = 101 };
typedef NSUInteger NSWindowCollectionBehavior;
enum : NSUInteger {
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorTransient = 1 << 3,
    NSWindowCollectionBehaviorStationary = 1 << 4,
};
typedef enum : NSInteger {
    NSWindowAnimationBehaviorDefault = 0,
    NSWindowAnimationBehaviorNone = 2
} NSWindowAnimationBehavior;
typedef NSUInteger NSEventMask;
enum : NSUInteger { NSEventMaskLeftMouseDown = 1 << 1, NSEventMaskRightMouseDown = 1 << 3 };
typedef enum : NSUInteger {
    NSCompositingOperationCopy = 1,
    NSCompositingOperationSourceOver = 2
} NSCompositingOperation;
typedef enum : NSInteger {
    NSApplicationActivationPolicyRegular = 0,
    NSApplicationActivationPolicyAccessory = 1,
    NSApplicationActivationPolicyProhibited = 2,
} NSApplicationActivationPolicy;

@interface NSAppearance : NSObject
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray *)names;
@end

@interface NSApplication : NSObject
+ (NSApplication *)sharedApplication;
- (NSAppearance *)effectiveAppearance;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
@end

@interface NSColor : NSObject
+ (NSColor *)clearColor;
@end

@interface NSEvent : NSObject
+ (NSPoint)mouseLocation;
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent *event))handler;
+ (void)removeMonitor:(id)monitor;
@end

@interface NSGraphicsContext : NSObject
+ (NSGraphicsContext *)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)flipped;
+ (void)setCurrentContext:(NSGraphicsContext *)context;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

@interface NSImage : NSObject
+ (NSImage *)imageWithSystemSymbolName:(NSString *)name accessibilityDescription:(NSString *)description;
- (NSSize)size;
- (void)setTemplate:(BOOL)isTemplate;
- (void)drawInRect:(NSRect)rect
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)opacity;
@end

@interface NSPasteboard : NSObject
+ (NSPasteboard *)generalPasteboard;
- (NSInteger)changeCount;
- (NSArray *)types;
- (NSInteger)clearContents;
- (BOOL)setString:(NSString *)text forType:(NSPasteboardType)type;
- (BOOL)setData:(NSData *)data forType:(NSPasteboardType)type;
- (BOOL)writeObjects:(NSArray *)objects;
- (NSString *)stringForType:(NSPasteboardType)type;
- (NSData *)dataForType:(NSPasteboardType)type;
- (NSArray *)readObjectsForClasses:(NSArray *)classes options:(NSDictionary *)options;
@end

@interface NSRunningApplication : NSObject
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)process;
- (NSString *)localizedName;
- (NSString *)bundleIdentifier;
- (pid_t)processIdentifier;
- (NSApplicationActivationPolicy)activationPolicy;
- (NSImage *)icon;
@end

@interface NSScreen : NSObject
+ (NSArray *)screens;
+ (NSScreen *)mainScreen;
- (NSRect)frame;
- (NSRect)visibleFrame;
- (NSDictionary *)deviceDescription;
@end

@class NSWindow;

@interface NSView : NSObject
- (NSWindow *)window;
- (void)addSubview:(NSView *)view;
- (void)removeFromSuperview;
@end

@interface NSWindow : NSObject
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer;
- (NSView *)contentView;
- (BOOL)canBecomeKeyWindow;
- (BOOL)canBecomeMainWindow;
- (void)makeKeyWindow;
- (void)orderFrontRegardless;
- (void)orderOut:(id)sender;
- (void)setAlphaValue:(CGFloat)alpha;
- (void)setAnimationBehavior:(NSWindowAnimationBehavior)behavior;
- (void)setBackgroundColor:(NSColor *)color;
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior;
- (void)setFrame:(NSRect)frame display:(BOOL)display;
- (void)setHasShadow:(BOOL)hasShadow;
- (void)setHidesOnDeactivate:(BOOL)hides;
- (void)setIgnoresMouseEvents:(BOOL)ignores;
- (void)setLevel:(NSWindowLevel)level;
- (void)setMovableByWindowBackground:(BOOL)movable;
- (void)setOpaque:(BOOL)opaque;
- (void)setReleasedWhenClosed:(BOOL)released;
@end

@interface NSPanel : NSWindow
@end

@interface NSWorkspace : NSObject
+ (NSWorkspace *)sharedWorkspace;
- (NSNotificationCenter *)notificationCenter;
- (NSRunningApplication *)frontmostApplication;
- (NSArray *)runningApplications;
- (BOOL)accessibilityDisplayShouldIncreaseContrast;
- (BOOL)accessibilityDisplayShouldReduceMotion;
- (NSImage *)iconForFile:(NSString *)path;
- (BOOL)openURL:(NSURL *)url;
- (BOOL)selectFile:(NSString *)path inFileViewerRootedAtPath:(NSString *)root;
@end
