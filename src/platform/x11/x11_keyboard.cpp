// SPDX-License-Identifier: MIT
#include "platform/x11/x11_keyboard.h"

#include <xcb/xinput.h>
// A member of a structure in it is named as this keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xcb/xtest.h>

#include <algorithm>

namespace pimloft {

X11Keyboard::X11Keyboard(X11Session &session, X11RawInput &input)
    : session_(session), map_(X11Keymap::read(session.connection())),
      canType_(session.hasExtension(&xcb_test_id)), canWatch_(input.isSupported()),
      releases_(input.watch(
          [this](const X11RawInput::Event &event) { handleRelease(xcb_keycode_t(event.detail)); })),
      events_(session.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
    if (!session.hasExtension(&xcb_xkb_id))
        return;
    xcb_connection_t *connection = session.connection();
    xkbEvent_ = xcb_get_extension_data(connection, &xcb_xkb_id)->first_event;
    constexpr std::uint16_t keyboardEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t everyPart = 0xff;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, keyboardEvents, 0, keyboardEvents, everyPart,
                          everyPart, nullptr);
    // A held key presses again and again, but is released once.
    xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD,
                             XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT,
                             XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT, 0, 0, 0);
    xcb_flush(connection);
}

X11Keyboard::~X11Keyboard() {
    for (const xcb_keycode_t key : restored_)
        fake(key, false);
    if (!restored_.empty())
        session_.roundTrip();
}

bool X11Keyboard::canPost() const {
    return canType_ && canWatch_;
}

void X11Keyboard::handle(const xcb_generic_event_t &event) {
    const bool concernsMap =
        X11Session::type(event) == XCB_MAPPING_NOTIFY || (xkbEvent_ && X11Session::type(event) == xkbEvent_);
    if (!concernsMap || std::exchange(readIsDue_, true))
        return;
    // Changes come in swarms: one for each part of the map.
    QMetaObject::invokeMethod(this, &X11Keyboard::readMap, Qt::QueuedConnection);
}

void X11Keyboard::readMap() {
    readIsDue_ = false;
    X11Keymap map = X11Keymap::read(session_.connection());
    if (map == map_)
        return;
    map_ = std::move(map);
    emit mapChanged();
}

void X11Keyboard::setTypist(KeyTypist *typist) {
    typist_ = typist;
    // What is down in the user's place is let go by the typist, which hears of the release first.
    restored_.clear();
    releases_->want(0);
}

KeySet X11Keyboard::heldKeys() const {
    if (const auto held = typist_ ? typist_->held() : std::nullopt)
        return *held;
    KeySet held;
    if (canWatch_)
        for (const KeyDevice &device : keyDevices(session_.connection()))
            if (!device.typesForPrograms)
                held |= keysDownOn(session_.connection(), device.id);
    return held;
}

void X11Keyboard::fake(xcb_keycode_t key, bool down) {
    fakeKey(session_.connection(), key, down);
}

void X11Keyboard::post(xcb_keycode_t key, KeyFlags modifiers) {
    if (!canPost() || !key)
        return;
    if (typist_ && typist_->post(key, map_.keysFor(modifiers)))
        return;
    const KeySet down = keysDown(session_.connection());
    std::vector<xcb_keycode_t> letGo;
    for (const xcb_keycode_t modifier : map_.modifierKeys())
        if (down.test(modifier) && std::find(letGo.begin(), letGo.end(), modifier) == letGo.end())
            letGo.push_back(modifier);
    // Those that were pressed in the user's place may be down on that device alone.
    for (const xcb_keycode_t modifier : restored_)
        fake(modifier, false);
    restored_.clear();
    for (const xcb_keycode_t modifier : letGo)
        fake(modifier, false);
    // A key that is down cannot be pressed.
    if (down.test(key))
        fake(key, false);

    const std::vector<xcb_keycode_t> wanted = map_.keysFor(modifiers);
    for (const xcb_keycode_t modifier : wanted)
        fake(modifier, true);
    fake(key, true);
    fake(key, false);
    for (auto modifier = wanted.rbegin(); modifier != wanted.rend(); ++modifier)
        fake(*modifier, false);
    restore(letGo);
    session_.roundTrip();
}

void X11Keyboard::restore(const std::vector<xcb_keycode_t> &keys) {
    // From here on a release by the user is heard of, so that none can pass between asking and pressing.
    releases_->want(X11RawInput::keyRelease);
    const KeySet held = heldKeys();
    for (const xcb_keycode_t key : keys)
        if (held.test(key)) {
            fake(key, true);
            restored_.insert(key);
        }
    if (restored_.empty())
        releases_->want(0);
}

void X11Keyboard::handleRelease(xcb_keycode_t key) {
    // The user's release ends the key for the programs, but not on the device that programs press keys on.
    if (!restored_.contains(key) || isHeld(key))
        return;
    fake(key, false);
    xcb_flush(session_.connection());
    restored_.erase(key);
    if (restored_.empty())
        releases_->want(0);
}

xcb_keycode_t X11Keyboard::keycodeInCurrentLayout(KeyCode key) const {
    int group = 0;
    if (xkbEvent_) {
        xcb_connection_t *connection = session_.connection();
        const XcbReply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
            connection, xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
        group = state ? state->group : 0;
    }
    return map_.letterKeycode(key, group);
}

void X11Keyboard::endHotkeyGrab() {
    xcb_ungrab_keyboard(session_.connection(), XCB_CURRENT_TIME);
    session_.roundTrip();
    emit hotkeyGrabEnded();
}

}  // namespace pimloft
