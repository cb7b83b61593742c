// SPDX-License-Identifier: MIT
#include "platform/hotkeys/mac_hotkeys.h"

#include <Carbon/Carbon.h>

#include <algorithm>

namespace pimloft {

namespace {

constexpr OSType signature = 0x504D4C46;  // "PMLF"

}  // namespace

struct MacHotkeys::Callback {
    static OSStatus call(EventHandlerCallRef, EventRef event, void *owner) {
        if (!event)
            return eventNotHandledErr;
        EventHotKeyID pressed{};
        const OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                                  sizeof pressed, nullptr, &pressed);
        if (status != noErr)
            return status;
        static_cast<MacHotkeys *>(owner)->press(HotkeyId(pressed.id));
        return noErr;
    }
};

MacHotkeys::MacHotkeys() {
    constexpr EventTypeSpec presses{kEventClassKeyboard, kEventHotKeyPressed};
    EventHandlerRef handler = nullptr;
    if (InstallEventHandler(GetApplicationEventTarget(), Callback::call, 1, &presses, this, &handler) ==
        noErr)
        handler_ = handler;
}

MacHotkeys::~MacHotkeys() {
    if (handler_)
        RemoveEventHandler(static_cast<EventHandlerRef>(handler_));
}

bool MacHotkeys::grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) {
    const auto known = std::find_if(hotkeys_.begin(), hotkeys_.end(), [&](const Hotkey &each) {
        return each.key == key && each.modifiers == modifiers;
    });
    if (known != hotkeys_.end()) {
        // The system would refuse a second registration by the same process.
        known->newest = id;
        return true;
    }
    EventHotKeyRef reference = nullptr;
    const OSStatus status =
        RegisterEventHotKey(UInt32(key), UInt32(modifiers), EventHotKeyID{signature, UInt32(id)},
                            GetApplicationEventTarget(), 0, &reference);
    if (status != noErr)
        return false;
    hotkeys_.push_back({key, modifiers, id, id});
    return true;
}

void MacHotkeys::press(HotkeyId first) {
    const auto pressed = std::find_if(hotkeys_.begin(), hotkeys_.end(),
                                      [first](const Hotkey &each) { return each.first == first; });
    if (pressed != hotkeys_.end() && onPressed)
        onPressed(pressed->newest);
}

}  // namespace pimloft
