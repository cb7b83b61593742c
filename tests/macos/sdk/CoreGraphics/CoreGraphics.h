// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

typedef double CGFloat;
typedef struct CGPoint {
    CGFloat x;
    CGFloat y;
} CGPoint;
typedef struct CGSize {
    CGFloat width;
    CGFloat height;
} CGSize;
typedef struct CGRect {
    CGPoint origin;
    CGSize size;
} CGRect;

typedef UInt16 CGKeyCode;
typedef struct __CGEvent *CGEventRef;
typedef struct __CGEventSource *CGEventSourceRef;
typedef struct __CGEventTapProxy *CGEventTapProxy;

typedef enum : UInt32 {
    kCGEventNull = 0,
    kCGEventLeftMouseDown = 1,
    kCGEventLeftMouseUp = 2,
    kCGEventRightMouseDown = 3,
    kCGEventRightMouseUp = 4,
    kCGEventMouseMoved = 5,
    kCGEventLeftMouseDragged = 6,
    kCGEventKeyDown = 10,
    kCGEventKeyUp = 11,
    kCGEventFlagsChanged = 12,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
} CGEventType;

typedef UInt64 CGEventMask;
#define CGEventMaskBit(type) ((CGEventMask)1 << (type))

typedef UInt64 CGEventFlags;
enum : UInt64 {
    kCGEventFlagMaskAlphaShift = 0x00010000,
    kCGEventFlagMaskShift = 0x00020000,
    kCGEventFlagMaskControl = 0x00040000,
    kCGEventFlagMaskAlternate = 0x00080000,
    kCGEventFlagMaskCommand = 0x00100000,
    kCGEventFlagMaskSecondaryFn = 0x00800000,
};

typedef enum : UInt32 { kCGKeyboardEventAutorepeat = 8, kCGKeyboardEventKeycode = 9 } CGEventField;
typedef enum : UInt32 {
    kCGHIDEventTap = 0,
    kCGSessionEventTap = 1,
    kCGAnnotatedSessionEventTap = 2
} CGEventTapLocation;
typedef enum : UInt32 { kCGHeadInsertEventTap = 0, kCGTailAppendEventTap = 1 } CGEventTapPlacement;
typedef enum : UInt32 { kCGEventTapOptionDefault = 0, kCGEventTapOptionListenOnly = 1 } CGEventTapOptions;
typedef enum : SInt32 {
    kCGEventSourceStatePrivate = -1,
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1,
} CGEventSourceStateID;

typedef CGEventRef (*CGEventTapCallBack)(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                         void *userInfo);

CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void *userInfo);
void CGEventTapEnable(CFMachPortRef tap, bool enable);
bool CGEventTapIsEnabled(CFMachPortRef tap);

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state);
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool keyDown);
CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);
void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, int64_t value);
CGPoint CGEventGetLocation(CGEventRef event);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
bool CGPreflightPostEventAccess(void);

typedef struct CGColorSpace *CGColorSpaceRef;
typedef struct CGContext *CGContextRef;
typedef UInt32 CGBitmapInfo;
typedef enum : UInt32 {
    kCGImageAlphaPremultipliedLast = 1,
    kCGImageAlphaPremultipliedFirst = 2
} CGImageAlphaInfo;

extern const CFStringRef kCGColorSpaceSRGB;
CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);
CGContextRef CGBitmapContextCreate(void *data, size_t width, size_t height, size_t bitsPerComponent,
                                   size_t bytesPerRow, CGColorSpaceRef space, UInt32 bitmapInfo);

}  // extern "C"
