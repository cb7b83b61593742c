// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#include <CoreAudio/CoreAudio.h>

enum : UInt32 { kAudioHardwareServiceDeviceProperty_VirtualMainVolume = 0x766D7663 };  // "vmvc"
