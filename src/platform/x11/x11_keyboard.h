// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/key_devices.h"
#include "platform/x11/x11_keymap.h"
#include "platform/x11/x11_raw_input.h"

#include <QObject>

#include <optional>
#include <set>
#include <vector>

namespace pimloft {

/// Who presses keys in place of X11Keyboard, while it has the physical keyboards for itself. Main thread.
class KeyTypist {
public:
    virtual ~KeyTypist() = default;

    /// As X11Keyboard::post, with the keys that press the modifiers. False when it cannot any more.
    virtual bool post(xcb_keycode_t key, const std::vector<xcb_keycode_t> &modifiers) = 0;
    /// The keys that the user holds, as they are delivered; nothing when it does not know any more.
    virtual std::optional<KeySet> held() const = 0;
};

/// The keyboard as the Linux services share it: its map, what the user holds down, and the only place that
/// presses keys by program or ends a hotkey's hold on the keyboard. Main thread.
class X11Keyboard : public QObject {
    Q_OBJECT

public:
    X11Keyboard(X11Session &session, X11RawInput &input);
    /// Lets go of what it pressed.
    ~X11Keyboard() override;

    const X11Keymap &map() const { return map_; }

    /// Whether the user holds the key, whatever programs make of it. Asks the server. A key that is delivered
    /// as another one counts as that.
    bool isHeld(xcb_keycode_t key) const { return heldKeys().test(key); }

    /// From now on `typist` presses keys; nobody else does, if it is null.
    void setTypist(KeyTypist *typist);

    /// Whether the display lets a program press keys.
    bool canPost() const;

    /// Presses and releases `key` in whichever window the keyboard goes to, with `modifiers` and no others.
    /// Modifiers that the user holds are let go for it and pressed again for as long as they are held.
    /// Returns when the server has carried it out.
    void post(xcb_keycode_t key, KeyFlags modifiers);

    /// The key that types the letter of `key` in the current layout; its position where none does.
    xcb_keycode_t keycodeInCurrentLayout(KeyCode key) const;

    /// While a hotkey is held, its owner holds the keyboard: typing would go to the owner, and no window can
    /// take the keyboard. On return that has ended, where the owner is this session.
    void endHotkeyGrab();

signals:
    /// Another layout or keyboard changed something in map().
    void mapChanged();
    void hotkeyGrabEnded();

private:
    void handle(const xcb_generic_event_t &event);
    void handleRelease(xcb_keycode_t key);
    void readMap();
    KeySet heldKeys() const;
    void fake(xcb_keycode_t key, bool down);
    void restore(const std::vector<xcb_keycode_t> &keys);

    X11Session &session_;
    X11Keymap map_;
    bool canType_ = false;
    bool canWatch_ = false;
    std::uint8_t xkbEvent_ = 0;
    bool readIsDue_ = false;
    KeyTypist *typist_ = nullptr;
    std::set<xcb_keycode_t> restored_;  ///< pressed by program in the user's place
    std::unique_ptr<X11RawInput::Watch> releases_;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
