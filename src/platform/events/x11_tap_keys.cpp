// SPDX-License-Identifier: MIT
#include "platform/events/x11_tap_keys.h"

namespace pimloft {

namespace {

constexpr KeyCode rightOption{61};

/// Where a Mac has its modifiers: both of each, and caps lock. A key there is one to macOS whatever it does
/// here.
bool isModifierPosition(KeyCode code) {
    return code >= KeyCode{54} && code <= KeyCode{62};
}

}  // namespace

TapKeys tapKeys(const X11Keymap &map) {
    TapKeys keys;
    for (const KeyPosition &position : keyPositions)
        if (const xcb_keycode_t key = map.keycode(position.key))
            keys.keys[key].code = position.key;
    for (int code = 0; code < 256; ++code) {
        TapKeys::Key &key = keys.keys[std::size_t(code)];
        key.flag = map.flag(xcb_keycode_t(code));
        // The right Option key often chooses further characters of a key, and is then none of the four.
        const bool acts =
            key.flag != KeyFlags::none || (key.code == rightOption && !map.isLock(xcb_keycode_t(code)));
        if (acts)
            key.kind = TapKeys::Kind::modifier;
        else if (key.code && isModifierPosition(*key.code))
            key.kind = TapKeys::Kind::lock;
    }
    for (std::size_t i = 0; i < TapKeys::flags.size(); ++i) {
        const auto codes = map.keysFor(TapKeys::flags[i]);
        keys.substitutes[i] = codes.empty() ? TapKey(0) : codes.front();
    }
    return keys;
}

}  // namespace pimloft
