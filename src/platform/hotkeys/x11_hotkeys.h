// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/hotkeys.h"
#include "platform/x11/x11_keyboard.h"

#include <QObject>

#include <set>
#include <vector>

namespace pimloft {

/// Hotkeys as passive grabs on the root window: by position, whatever the layout prints there, and with any
/// of the locks on. Main thread.
class X11Hotkeys final : public QObject, public HotkeyService {
    Q_OBJECT

public:
    X11Hotkeys(X11Session &session, X11Keyboard &keyboard, X11RawInput &input);

    bool grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) override;

    /// For key presses that come to a window of ours instead, while it holds the keyboard: reports a granted
    /// combination as pressed. True when the event belongs to a hotkey, whose key may have been down before.
    bool takePress(xcb_keycode_t key, std::uint16_t state);
    bool takeRelease(xcb_keycode_t key);

private:
    struct Hotkey {
        KeyCode key;
        CarbonModifiers modifiers;
        HotkeyId id;
        xcb_keycode_t code = 0;  ///< as it is grabbed; 0 while it is not
        std::uint16_t mask = 0;
        std::vector<std::uint16_t> lockVariants{};
    };

    void handle(const xcb_generic_event_t &event);
    void handleRelease(xcb_keycode_t key);
    bool grab(Hotkey &hotkey);
    void ungrab(Hotkey &hotkey);
    void regrabAll();
    void setHeld(xcb_keycode_t key, bool held);

    X11Session &session_;
    X11Keyboard &keyboard_;
    std::vector<Hotkey> hotkeys_;
    std::set<xcb_keycode_t> held_;  ///< pressed as a hotkey and not let go yet
    std::unique_ptr<X11RawInput::Watch> releases_;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
