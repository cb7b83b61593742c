// SPDX-License-Identifier: MIT
#include "platform/hotkeys/x11_hotkeys.h"

#include <algorithm>

namespace pimloft {

namespace {

/// Modifier keys in the state of a key event; above them stand mouse buttons and the layout.
constexpr std::uint16_t modifierBits = 0xff;

}  // namespace

X11Hotkeys::X11Hotkeys(X11Session &session, X11Keyboard &keyboard, X11RawInput &input)
    : session_(session), keyboard_(keyboard), releases_(input.watch([this](const X11RawInput::Event &event) {
          handleRelease(xcb_keycode_t(event.detail));
      })),
      events_(session.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
    connect(&keyboard, &X11Keyboard::mapChanged, this, &X11Hotkeys::regrabAll);
    // Without raw events nobody tells of a release that goes to another window.
    if (!input.isSupported())
        connect(&keyboard, &X11Keyboard::hotkeyGrabEnded, this, [this] { held_.reset(); });
}

bool X11Hotkeys::grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) {
    const auto known = std::find_if(hotkeys_.begin(), hotkeys_.end(), [&](const Hotkey &each) {
        return each.key == key && each.modifiers == modifiers;
    });
    if (known != hotkeys_.end()) {
        known->id = id;
        // Where its key moved with the layout, another program may have had the new place.
        if (known->code != 0 || grab(*known))
            return true;
        hotkeys_.erase(known);
        return false;
    }
    Hotkey hotkey{.key = key, .modifiers = modifiers, .id = id};
    if (!grab(hotkey))
        return false;
    hotkeys_.push_back(hotkey);
    return true;
}

bool X11Hotkeys::grab(Hotkey &hotkey) {
    const X11Keymap &map = keyboard_.map();
    hotkey.code = map.keycode(hotkey.key);
    hotkey.mask = map.mask(hotkey.modifiers);
    hotkey.lockVariants = map.lockVariants();
    if (!hotkey.code)
        return false;
    xcb_connection_t *connection = session_.connection();
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t locks : hotkey.lockVariants)
        cookies.push_back(xcb_grab_key_checked(connection, false, session_.root(), hotkey.mask | locks,
                                               hotkey.code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool granted = true;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        granted = granted && !error;
    }
    // One that works with some of the locks only would be worse than none.
    if (!granted)
        ungrab(hotkey);
    return granted;
}

void X11Hotkeys::ungrab(Hotkey &hotkey) {
    if (!hotkey.code)
        return;
    for (const std::uint16_t locks : hotkey.lockVariants)
        xcb_ungrab_key(session_.connection(), hotkey.code, session_.root(), hotkey.mask | locks);
    xcb_flush(session_.connection());
    hotkey.code = 0;
}

void X11Hotkeys::regrabAll() {
    const X11Keymap &map = keyboard_.map();
    std::vector<Hotkey *> moved;
    for (Hotkey &hotkey : hotkeys_)
        if (hotkey.code != map.keycode(hotkey.key) || hotkey.mask != map.mask(hotkey.modifiers) ||
            hotkey.lockVariants != map.lockVariants())
            moved.push_back(&hotkey);
    // All old ones first: one may take the place of another.
    for (Hotkey *hotkey : moved)
        ungrab(*hotkey);
    for (Hotkey *hotkey : moved)
        grab(*hotkey);
}

void X11Hotkeys::handle(const xcb_generic_event_t &event) {
    const int type = X11Session::type(event);
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return;
    const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(event);
    if (key.event != session_.root())
        return;
    if (type == XCB_KEY_PRESS)
        takePress(key);
    else
        handleRelease(key.detail);
}

bool X11Hotkeys::takePress(const xcb_key_press_event_t &event) {
    // A repeat, or the key that opened a window which now holds the keyboard.
    if (held_.test(event.detail))
        return true;
    const std::uint16_t modifiers = event.state & modifierBits & ~keyboard_.map().locks();
    const auto pressed = std::find_if(hotkeys_.begin(), hotkeys_.end(), [&](const Hotkey &each) {
        return each.code == event.detail && each.mask == modifiers;
    });
    if (pressed == hotkeys_.end())
        return false;
    held_.set(event.detail);
    listenForReleases();
    if (onPressed)
        onPressed(pressed->id);
    return true;
}

bool X11Hotkeys::takeRelease(const xcb_key_release_event_t &event) {
    const bool ours = held_.test(event.detail);
    handleRelease(event.detail);
    return ours;
}

void X11Hotkeys::handleRelease(xcb_keycode_t key) {
    // A key that a program let go, to press it anew, is still under the user's finger.
    if (!held_.test(key) || keyboard_.isHeld(key))
        return;
    held_.reset(key);
    listenForReleases();
}

/// A release goes to another window once the hotkey's hold on the keyboard was ended.
void X11Hotkeys::listenForReleases() {
    releases_->want(held_.none() ? 0 : X11RawInput::keyRelease);
}

}  // namespace pimloft
