// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <sys/types.h>

extern "C" {

typedef enum : SInt32 {
    kAXErrorSuccess = 0,
    kAXErrorFailure = -25200,
    kAXErrorInvalidUIElement = -25202,
    kAXErrorCannotComplete = -25204,
    kAXErrorAttributeUnsupported = -25205,
    kAXErrorAPIDisabled = -25211,
    kAXErrorNoValue = -25212,
} AXError;

typedef const struct __AXUIElement *AXUIElementRef;
typedef const struct __AXValue *AXValueRef;
typedef enum : UInt32 { kAXValueTypeCGPoint = 1, kAXValueTypeCGSize = 2, kAXValueTypeCGRect = 3 } AXValueType;

#define kAXFocusedApplicationAttribute CFSTR("AXFocusedApplication")
#define kAXFocusedWindowAttribute CFSTR("AXFocusedWindow")
#define kAXPositionAttribute CFSTR("AXPosition")
#define kAXSizeAttribute CFSTR("AXSize")

Boolean AXIsProcessTrusted(void);
CFTypeID AXUIElementGetTypeID(void);
AXUIElementRef AXUIElementCreateSystemWide(void);
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef *value);
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value);
AXError AXUIElementGetPid(AXUIElementRef element, pid_t *pid);
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);
CFTypeID AXValueGetTypeID(void);
AXValueRef AXValueCreate(AXValueType type, const void *value);
Boolean AXValueGetValue(AXValueRef value, AXValueType type, void *result);

}  // extern "C"
