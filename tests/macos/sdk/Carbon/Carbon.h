// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

extern "C" {

#ifndef __MACTYPES__
typedef unsigned long ByteCount;
typedef unsigned long ItemCount;
typedef UInt32 OptionBits;
#endif

typedef struct OpaqueEventRef *EventRef;
typedef struct OpaqueEventTargetRef *EventTargetRef;
typedef struct OpaqueEventHandlerRef *EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef *EventHandlerCallRef;
typedef struct OpaqueEventHotKeyRef *EventHotKeyRef;
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
} EventTypeSpec;
typedef struct EventHotKeyID {
    OSType signature;
    UInt32 id;
} EventHotKeyID;
typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef call, EventRef event, void *userData);
typedef EventHandlerProcPtr EventHandlerUPP;

enum : UInt32 { kEventClassKeyboard = 0x6B657962 };  // "keyb"
enum : UInt32 { kEventHotKeyPressed = 5, kEventHotKeyReleased = 6 };
enum : UInt32 { kEventParamDirectObject = 0x2D2D2D2D };  // "----"
enum : UInt32 { typeEventHotKeyID = 0x686B6964 };        // "hkid"
enum : SInt32 { eventNotHandledErr = -9874, eventParameterNotFoundErr = -9870, eventHotKeyExistsErr = -9878 };

EventTargetRef GetApplicationEventTarget(void);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount count,
                             const EventTypeSpec *types, void *userData, EventHandlerRef *result);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus RegisterEventHotKey(UInt32 key, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef *result);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType *actualType, ByteCount size, ByteCount *actualSize, void *data);
Boolean IsSecureEventInputEnabled(void);

}  // extern "C"
