// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_poster.h"
#include "platform/events/shortcut_chord.h"
#include "platform/x11/x11_keyboard.h"

#include <functional>

namespace pimloft {

/// Types through XTEST. Main thread.
class X11KeyPoster final : public KeyPoster {
public:
    /// `endTyping` takes the keyboard back from a panel that holds it; `chordInFront` tells what the program
    /// in front understands.
    X11KeyPoster(X11Keyboard &keyboard, std::function<void()> endTyping,
                 std::function<ShortcutChord()> chordInFront);

    void post(KeyCode key, KeyFlags modifiers) override;

private:
    X11Keyboard &keyboard_;
    std::function<void()> endTyping_;
    std::function<ShortcutChord()> chordInFront_;
};

}  // namespace pimloft
