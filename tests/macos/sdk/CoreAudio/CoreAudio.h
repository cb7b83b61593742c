// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __BLOCKS__
#include <dispatch/dispatch.h>
#endif

extern "C" {

typedef UInt32 AudioObjectID;
typedef AudioObjectID AudioDeviceID;
typedef UInt32 AudioObjectPropertySelector;
typedef UInt32 AudioObjectPropertyScope;
typedef UInt32 AudioObjectPropertyElement;
typedef struct AudioObjectPropertyAddress {
    AudioObjectPropertySelector mSelector;
    AudioObjectPropertyScope mScope;
    AudioObjectPropertyElement mElement;
} AudioObjectPropertyAddress;

enum : AudioObjectID { kAudioObjectUnknown = 0, kAudioObjectSystemObject = 1 };
enum : UInt32 { kAudioObjectPropertyElementMain = 0 };
enum : UInt32 {
    kAudioObjectPropertyScopeGlobal = 0x676C6F62,            // "glob"
    kAudioObjectPropertyScopeInput = 0x696E7074,             // "inpt"
    kAudioObjectPropertyScopeOutput = 0x6F757470,            // "outp"
    kAudioHardwarePropertyDevices = 0x64657623,              // "dev#"
    kAudioHardwarePropertyDefaultInputDevice = 0x64496E20,   // "dIn "
    kAudioHardwarePropertyDefaultOutputDevice = 0x644F7574,  // "dOut"
    kAudioHardwarePropertyServiceRestarted = 0x73727374,     // "srst"
    kAudioObjectPropertyName = 0x6C6E616D,                   // "lnam"
    kAudioDevicePropertyDeviceUID = 0x75696420,              // "uid "
    kAudioDevicePropertyStreams = 0x73746D23,                // "stm#"
    kAudioDevicePropertyMute = 0x6D757465,                   // "mute"
};
enum : OSStatus {
    kAudioHardwareUnknownPropertyError = 0x77686F3F,
    kAudioHardwareBadObjectError = 0x216F626A
};

OSStatus AudioObjectGetPropertyDataSize(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                        UInt32 qualifierSize, const void *qualifier, UInt32 *size);
OSStatus AudioObjectGetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                    UInt32 qualifierSize, const void *qualifier, UInt32 *size, void *data);
OSStatus AudioObjectSetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                    UInt32 qualifierSize, const void *qualifier, UInt32 size,
                                    const void *data);
#ifdef __BLOCKS__
typedef void (^AudioObjectPropertyListenerBlock)(UInt32 count, const AudioObjectPropertyAddress *addresses);
OSStatus AudioObjectAddPropertyListenerBlock(AudioObjectID object, const AudioObjectPropertyAddress *address,
                                             dispatch_queue_t queue,
                                             AudioObjectPropertyListenerBlock listener);
OSStatus AudioObjectRemovePropertyListenerBlock(AudioObjectID object,
                                                const AudioObjectPropertyAddress *address,
                                                dispatch_queue_t queue,
                                                AudioObjectPropertyListenerBlock listener);
#endif

}  // extern "C"
