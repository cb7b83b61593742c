// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/hotkeys.h"
#include "platform/x11/key_devices.h"
#include "platform/x11/x11_keyboard.h"

#include <QObject>

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
    bool takePress(const xcb_key_press_event_t &event);
    bool takeRelease(const xcb_key_release_event_t &event);

    /// The keys that were pressed as hotkeys and that the user has not let go yet, as far as was told.
    const KeySet &held() const { return held_; }

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
    void listenForReleases();

    X11Session &session_;
    X11Keyboard &keyboard_;
    std::vector<Hotkey> hotkeys_;
    KeySet held_;
    std::unique_ptr<X11RawInput::Watch> releases_;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
