// SPDX-License-Identifier: MIT
// The numbers that the tests expect, behind the names that the program uses. Compiled by the tests against
// our own declarations, and on a Mac against the system's: that is what makes the tests' numbers true.
#import <AppKit/AppKit.h>
#import <ServiceManagement/ServiceManagement.h>

#include <ApplicationServices/ApplicationServices.h>
#include <AudioToolbox/AudioToolbox.h>
#include <Carbon/Carbon.h>
#include <CoreAudio/CoreAudio.h>

// Events.
static_assert(kCGEventLeftMouseDown == 1 && kCGEventLeftMouseUp == 2 && kCGEventLeftMouseDragged == 6);
static_assert(kCGEventKeyDown == 10 && kCGEventKeyUp == 11 && kCGEventFlagsChanged == 12);
static_assert(kCGEventTapDisabledByTimeout == 0xFFFFFFFE && kCGEventTapDisabledByUserInput == 0xFFFFFFFF);
static_assert(kCGHIDEventTap == 0 && kCGHeadInsertEventTap == 0);
static_assert(kCGEventTapOptionDefault == 0 && kCGEventTapOptionListenOnly == 1);
static_assert(kCGKeyboardEventKeycode == 9);
static_assert(kCGEventSourceStateHIDSystemState == 1);
static_assert(kCGEventFlagMaskShift == 0x20000 && kCGEventFlagMaskControl == 0x40000);
static_assert(kCGEventFlagMaskAlternate == 0x80000 && kCGEventFlagMaskCommand == 0x100000);
static_assert(kCGEventFlagMaskSecondaryFn == 0x800000);

// Hotkeys.
static_assert(kEventClassKeyboard == 0x6B657962 && kEventHotKeyPressed == 5);
static_assert(kEventParamDirectObject == 0x2D2D2D2D && typeEventHotKeyID == 0x686B6964);
static_assert(sizeof(EventHotKeyID) == 8);
static_assert(noErr == 0 && eventNotHandledErr == -9874 && eventHotKeyExistsErr == -9878);

// Windows.
static_assert(kAXValueTypeCGPoint == 1 && kAXValueTypeCGSize == 2);
static_assert(kAXErrorSuccess == 0);

// Sound.
static_assert(kAudioObjectSystemObject == 1 && kAudioObjectUnknown == 0 &&
              kAudioObjectPropertyElementMain == 0);
static_assert(kAudioObjectPropertyScopeGlobal == 0x676C6F62 && kAudioObjectPropertyScopeOutput == 0x6F757470);
static_assert(kAudioHardwarePropertyDefaultOutputDevice == 0x644F7574);
static_assert(kAudioHardwarePropertyDevices == 0x64657623);
static_assert(kAudioHardwarePropertyServiceRestarted == 0x73727374);
static_assert(kAudioDevicePropertyStreams == 0x73746D23);
static_assert(kAudioObjectPropertyName == 0x6C6E616D && kAudioDevicePropertyDeviceUID == 0x75696420);
static_assert(kAudioHardwareServiceDeviceProperty_VirtualMainVolume == 0x766D7663);
static_assert(kAudioDevicePropertyMute == 0x6D757465);
static_assert(sizeof(AudioDeviceID) == 4 && sizeof(Float32) == 4);

// Panels and the application.
static_assert(NSWindowStyleMaskBorderless == 0 && NSWindowStyleMaskNonactivatingPanel == 128);
static_assert(NSFloatingWindowLevel == 3 && NSPopUpMenuWindowLevel == 101);
static_assert((NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorStationary) == 17);
static_assert((NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorTransient) == 9);
static_assert(NSWindowAnimationBehaviorNone == 2 && NSBackingStoreBuffered == 2);
static_assert((NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown) == 10);
static_assert(NSApplicationActivationPolicyRegular == 0 && NSApplicationActivationPolicyAccessory == 1);
static_assert(NSApplicationActivationPolicyProhibited == 2);
static_assert(kCGImageAlphaPremultipliedLast == 1 && NSCompositingOperationSourceOver == 2);
