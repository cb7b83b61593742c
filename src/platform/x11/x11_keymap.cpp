// SPDX-License-Identifier: MIT
#include "platform/x11/x11_keymap.h"

#include "platform/x11/x11_session.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <initializer_list>

namespace pimloft {

namespace {

/// What the kernel's key numbers are in X.
constexpr int kernelOffset = 8;

}  // namespace

/// Fills a map from the server's answers.
class X11Keymap::Reader {
public:
    explicit Reader(xcb_connection_t *connection)
        : keymap_(serverKeymap(connection)),
          modifiers_(
              xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr)) {}

    X11Keymap read() const {
        X11Keymap map;
        for (std::size_t i = 0; i < keyPositions.size(); ++i)
            map.keycodes_[i] = keycode(keyPositions[i]);
        for (int group = 0; keymap_ && group < groups; ++group)
            for (int code = kernelOffset; code < 256; ++code) {
                const xkb_keysym_t symbol = this->symbol(xcb_keycode_t(code), group);
                map.letters_[std::size_t(group)][std::size_t(code)] =
                    symbol >= XKB_KEY_a && symbol <= XKB_KEY_z ? char(symbol) : char(0);
            }
        map.command_ =
            modifier({XKB_KEY_Super_L, XKB_KEY_Super_R}, {XCB_MOD_MASK_4, map.keycode(KeyCode{55})});
        map.option_ = modifier({XKB_KEY_Alt_L, XKB_KEY_Alt_R, XKB_KEY_Meta_L},
                               {XCB_MOD_MASK_1, map.keycode(KeyCode{58})});
        map.control_ = modifier({XKB_KEY_Control_L, XKB_KEY_Control_R},
                                {XCB_MOD_MASK_CONTROL, map.keycode(KeyCode{59})});
        map.shift_ =
            modifier({XKB_KEY_Shift_L, XKB_KEY_Shift_R}, {XCB_MOD_MASK_SHIFT, map.keycode(KeyCode{56})});

        const std::uint16_t lockMasks[] = {XCB_MOD_MASK_LOCK, modifier({XKB_KEY_Num_Lock}, {}).mask,
                                           modifier({XKB_KEY_Scroll_Lock}, {}).mask};
        for (unsigned chosen = 0; chosen < 8; ++chosen) {
            std::uint16_t variant = 0;
            for (unsigned i = 0; i < 3; ++i)
                variant |= (chosen >> i & 1) ? lockMasks[i] : std::uint16_t(0);
            map.lockVariants_.push_back(variant);
        }
        std::sort(map.lockVariants_.begin(), map.lockVariants_.end());
        map.lockVariants_.erase(std::unique(map.lockVariants_.begin(), map.lockVariants_.end()),
                                map.lockVariants_.end());
        // Every combination of the masks is there, so the one with all of them is the largest number.
        for (int index = 0; index < 8; ++index)
            for (xcb_keycode_t key : keysOf(index)) {
                map.flags_[key] = flag(map, std::uint16_t(1 << index));
                if (map.locks() & 1 << index)
                    map.lockKeys_.set(key);
                else
                    map.modifierKeys_.push_back(key);
            }
        return map;
    }

private:
    struct Unref {
        void operator()(xkb_context *context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    };

    static std::unique_ptr<xkb_keymap, Unref> serverKeymap(xcb_connection_t *connection) {
        const std::unique_ptr<xkb_context, Unref> context(xkb_context_new(static_cast<xkb_context_flags>(
            XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
        if (!context || !xkb_x11_setup_xkb_extension(
                            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
            return nullptr;
        xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
        return std::unique_ptr<xkb_keymap, Unref>(xkb_x11_keymap_new_from_device(
            context.get(), connection, xkb_x11_get_core_keyboard_device_id(connection),
            XKB_KEYMAP_COMPILE_NO_FLAGS));
    }

    xcb_keycode_t keycode(const KeyPosition &position) const {
        const auto usual = xcb_keycode_t(position.kernel + kernelOffset);
        if (!keymap_)
            return usual;
        const xkb_keycode_t named = xkb_keymap_key_by_name(keymap_.get(), position.name);
        if (named != XKB_KEYCODE_INVALID)
            return xcb_keycode_t(named);
        // A server with names of its own for this number means another key by it.
        return xkb_keymap_key_get_name(keymap_.get(), usual) ? xcb_keycode_t(0) : usual;
    }

    xkb_keysym_t symbol(xcb_keycode_t key, int group) const {
        if (!keymap_)
            return XKB_KEY_NoSymbol;
        const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap_.get(), key);
        const xkb_keysym_t *symbols = nullptr;
        if (layouts == 0 || xkb_keymap_key_get_syms_by_level(
                                keymap_.get(), key, xkb_layout_index_t(group) % layouts, 0, &symbols) < 1)
            return XKB_KEY_NoSymbol;
        return symbols[0];
    }

    static KeyFlags flag(const X11Keymap &map, std::uint16_t mask) {
        for (const auto &[flag, modifier] :
             {std::pair(KeyFlags::shift, map.shift_), std::pair(KeyFlags::control, map.control_),
              std::pair(KeyFlags::option, map.option_), std::pair(KeyFlags::command, map.command_)})
            if (modifier.mask == mask)
                return flag;
        return KeyFlags::none;
    }

    /// The keys that the server counts to its modifier number `index`.
    std::vector<xcb_keycode_t> keysOf(int index) const {
        std::vector<xcb_keycode_t> keys;
        if (!modifiers_)
            return keys;
        const xcb_keycode_t *first =
            xcb_get_modifier_mapping_keycodes(modifiers_.get()) + index * modifiers_->keycodes_per_modifier;
        std::copy_if(first, first + modifiers_->keycodes_per_modifier, std::back_inserter(keys),
                     [](xcb_keycode_t key) { return key != 0; });
        return keys;
    }

    /// The modifier that keys with one of `symbols` press, the first symbol's before the others'.
    Modifier modifier(std::initializer_list<xkb_keysym_t> symbols, Modifier otherwise) const {
        for (const xkb_keysym_t wanted : symbols)
            for (int index = 0; index < 8; ++index)
                for (const xcb_keycode_t key : keysOf(index))
                    if (symbol(key, 0) == wanted)
                        return {std::uint16_t(1 << index), key};
        return otherwise;
    }

    std::unique_ptr<xkb_keymap, Unref> keymap_;
    XcbReply<xcb_get_modifier_mapping_reply_t> modifiers_;
};

X11Keymap X11Keymap::read(xcb_connection_t *connection) {
    return Reader(connection).read();
}

xcb_keycode_t X11Keymap::keycode(KeyCode key) const {
    const auto found = std::lower_bound(keyPositions.begin(), keyPositions.end(), key,
                                        [](const KeyPosition &each, KeyCode k) { return each.key < k; });
    const bool known = found != keyPositions.end() && found->key == key;
    return known ? keycodes_[std::size_t(found - keyPositions.begin())] : xcb_keycode_t(0);
}

xcb_keycode_t X11Keymap::letterKeycode(KeyCode key, int group) const {
    const xcb_keycode_t position = keycode(key);
    const auto found = std::find_if(keyPositions.begin(), keyPositions.end(),
                                    [key](const KeyPosition &each) { return each.key == key; });
    if (found == keyPositions.end() || !found->letter || group < 0 || group >= groups)
        return position;
    const std::array<char, 256> &letters = letters_[std::size_t(group)];
    if (letters[position] == found->letter)
        return position;
    const auto typed = std::find(letters.begin(), letters.end(), found->letter);
    return typed == letters.end() ? position : xcb_keycode_t(typed - letters.begin());
}

std::uint16_t X11Keymap::mask(CarbonModifiers modifiers) const {
    std::uint16_t mask = 0;
    for (const auto &[each, modifier] :
         {std::pair(CarbonModifiers::command, command_), std::pair(CarbonModifiers::control, control_),
          std::pair(CarbonModifiers::option, option_), std::pair(CarbonModifiers::shift, shift_)})
        if (contains(modifiers, each))
            mask |= modifier.mask;
    return mask;
}

std::vector<xcb_keycode_t> X11Keymap::keysFor(KeyFlags modifiers) const {
    std::vector<xcb_keycode_t> keys;
    for (const auto &[each, modifier] :
         {std::pair(KeyFlags::control, control_), std::pair(KeyFlags::option, option_),
          std::pair(KeyFlags::shift, shift_), std::pair(KeyFlags::command, command_)})
        if (contains(modifiers, each) && modifier.key)
            keys.push_back(modifier.key);
    return keys;
}

}  // namespace pimloft
