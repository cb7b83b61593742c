// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/tap_state.h"
#include "platform/x11/key_positions.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <functional>
#include <string>

namespace pimloft::test {

/// X key codes are the kernel's, shifted.
constexpr TapKey xKey(int kernel) {
    return TapKey(kernel + 8);
}

/// The keys of an American keyboard.
inline TapKeys americanKeys() {
    TapKeys keys;
    for (const KeyPosition &position : keyPositions)
        keys.keys[xKey(position.kernel)].code = position.key;
    const auto modifier = [&](int kernel, KeyFlags flag) {
        keys.keys[xKey(kernel)].flag = flag;
        keys.keys[xKey(kernel)].kind = TapKeys::Kind::modifier;
    };
    modifier(KEY_LEFTSHIFT, KeyFlags::shift);
    modifier(KEY_RIGHTSHIFT, KeyFlags::shift);
    modifier(KEY_LEFTCTRL, KeyFlags::control);
    modifier(KEY_RIGHTCTRL, KeyFlags::control);
    modifier(KEY_LEFTALT, KeyFlags::option);
    modifier(KEY_RIGHTALT, KeyFlags::option);
    modifier(KEY_LEFTMETA, KeyFlags::command);
    modifier(KEY_RIGHTMETA, KeyFlags::command);
    keys.keys[xKey(KEY_CAPSLOCK)].kind = TapKeys::Kind::lock;
    keys.substitutes = {xKey(KEY_LEFTSHIFT), xKey(KEY_LEFTCTRL), xKey(KEY_LEFTALT), xKey(KEY_LEFTMETA)};
    return keys;
}

/// "LCTL" and the like; "AC01" is the A key.
inline std::string keyName(TapKey key) {
    const auto found = std::find_if(keyPositions.begin(), keyPositions.end(),
                                    [key](const KeyPosition &each) { return xKey(each.kernel) == key; });
    if (found == keyPositions.end())
        return std::to_string(key);
    return found->letter ? std::string(1, found->letter) : found->name;
}

/// "+LWIN -LCTL +c"
inline std::string text(TapState::Actions actions) {
    std::string text;
    for (const TapAction &action : actions) {
        if (!text.empty())
            text += ' ';
        text += action.down ? '+' : '-';
        text += keyName(action.key);
    }
    return text;
}

/// A filter that a test can exchange.
struct AnyFilter final : KeyFilter {
    std::function<KeyEvent(KeyEvent)> decide = [](KeyEvent event) { return event; };
    std::vector<KeyEvent> asked;
    std::vector<std::string> frontmosts;

    KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant) noexcept override {
        asked.push_back(event);
        frontmosts.emplace_back(frontmost);
        return decide(event);
    }
};

constexpr KeyFlags operator^(KeyFlags a, KeyFlags b) {
    return KeyFlags(std::uint64_t(a) ^ std::uint64_t(b));
}

/// Control and Command in each other's place for every key, but not for flags.
inline KeyEvent swapped(KeyEvent event) {
    const KeyFlags both = KeyFlags::control | KeyFlags::command;
    const bool one = contains(event.flags, KeyFlags::control) != contains(event.flags, KeyFlags::command);
    if (event.type != KeyEventType::flagsChanged && one)
        event.flags = event.flags ^ both;
    return event;
}

}  // namespace pimloft::test
