// SPDX-License-Identifier: MIT
#pragma once

#include <Carbon/Carbon.h>

namespace pimloft::test::mac {

/// Another program has the combination.
void takeHotkey(UInt32 key, UInt32 modifiers);

/// The user presses a combination. What the handler answered; `hotkeyUnknown` when nobody has registered it.
OSStatus pressHotkey(UInt32 key, UInt32 modifiers);
constexpr OSStatus hotkeyUnknown = -1;
/// The same with an event that does not tell which.
OSStatus pressWithoutId();
/// The handler is called without an event.
OSStatus callWithoutEvent();
/// An id that nobody has registered, such as another part of the process has.
OSStatus pressId(UInt32 id);

void setSecureInput(bool on);

}  // namespace pimloft::test::mac
