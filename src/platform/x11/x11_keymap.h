// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"
#include "platform/x11/key_positions.h"

#include <xcb/xcb.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <vector>

namespace pimloft {

/// What the server's keyboard map says of the keys that the program speaks of. A value; main thread.
class X11Keymap {
public:
    /// As the server has it now, within a few milliseconds. Where it does not answer, the usual map of a PC.
    static X11Keymap read(xcb_connection_t *connection);

    /// 0 when the keyboard has no such key.
    xcb_keycode_t keycode(KeyCode key) const;

    /// The key that types the letter which `key` has on an American keyboard, in the given group of the
    /// layout. The key at the position itself for other keys, and where no key types the letter.
    xcb_keycode_t letterKeycode(KeyCode key, int group) const;

    std::uint16_t mask(CarbonModifiers modifiers) const;

    /// What caps lock, num lock and scroll lock may add to the state of a key event: every combination, none
    /// first.
    const std::vector<std::uint16_t> &lockVariants() const { return lockVariants_; }
    std::uint16_t locks() const { return lockVariants_.back(); }

    /// The keys that press the given modifiers.
    std::vector<xcb_keycode_t> keysFor(KeyFlags modifiers) const;

    /// Every key that acts as a modifier while it is down; locks are none.
    const std::vector<xcb_keycode_t> &modifierKeys() const { return modifierKeys_; }

    /// What a key is while it is down: none for keys that are no modifiers, or none of these four.
    KeyFlags flag(xcb_keycode_t key) const { return flags_[key]; }
    /// Whether a key switches caps lock, num lock or scroll lock.
    bool isLock(xcb_keycode_t key) const { return lockKeys_.test(key); }

    friend bool operator==(const X11Keymap &, const X11Keymap &) = default;

private:
    /// A modifier by its meaning: its bit, and the key that presses it.
    struct Modifier {
        std::uint16_t mask = 0;
        xcb_keycode_t key = 0;
        friend bool operator==(const Modifier &, const Modifier &) = default;
    };
    class Reader;

    static constexpr int groups = 4;
    std::array<xcb_keycode_t, keyPositions.size()> keycodes_{};
    std::array<std::array<char, 256>, groups> letters_{};
    Modifier command_;
    Modifier control_;
    Modifier option_;
    Modifier shift_;
    std::vector<std::uint16_t> lockVariants_;
    std::vector<xcb_keycode_t> modifierKeys_;
    std::array<KeyFlags, 256> flags_{};
    std::bitset<256> lockKeys_;
};

}  // namespace pimloft
