// SPDX-License-Identifier: MIT
#include "platform/events/x11_key_poster.h"

namespace pimloft {

namespace {

constexpr KeyCode insertKey{114};

}  // namespace

X11KeyPoster::X11KeyPoster(X11Keyboard &keyboard, std::function<void()> endTyping,
                           std::function<ShortcutChord()> chordInFront)
    : keyboard_(keyboard), endTyping_(std::move(endTyping)), chordInFront_(std::move(chordInFront)) {
}

void X11KeyPoster::post(KeyCode key, KeyFlags modifiers) {
    if (!keyboard_.canPost())
        return;
    endTyping_();
    keyboard_.endHotkeyGrab();
    if (!contains(modifiers, KeyFlags::command)) {
        keyboard_.post(keyboard_.map().keycode(key), modifiers);
        return;
    }
    const KeyFlags rest = modifiers - KeyFlags::command;
    const ShortcutChord chord = chordInFront_();
    if (chord == ShortcutChord::shiftInsert && key == Key::v) {
        keyboard_.post(keyboard_.map().keycode(insertKey), rest | KeyFlags::shift);
        return;
    }
    const KeyFlags shift = chord == ShortcutChord::controlShift ? KeyFlags::shift : KeyFlags::none;
    // Programs know their shortcuts by letter, not by position.
    keyboard_.post(keyboard_.keycodeInCurrentLayout(key), rest | KeyFlags::control | shift);
}

}  // namespace pimloft
