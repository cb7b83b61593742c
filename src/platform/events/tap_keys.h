// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <array>
#include <cstdint>
#include <optional>

namespace pimloft {

/// A key as the X server numbers it.
using TapKey = std::uint8_t;

/// What the keys of the keyboard are, in a form that answers at once. A value; any thread.
struct TapKeys {
    enum class Kind : std::uint8_t {
        ordinary,
        modifier,  ///< acts while it is held: one of the four flags, or the key for a letter's third level
        lock,      ///< delivered as a modifier, but not to be let go for the user: that would switch a lock
    };
    struct Key {
        std::optional<KeyCode> code{};  ///< none for keys that macOS does not know
        KeyFlags flag = KeyFlags::none;
        Kind kind = Kind::ordinary;
    };

    std::array<Key, 256> keys{};
    /// The keys that stand for shift, control, option and command, as in `flags`; 0 where there is none.
    std::array<TapKey, 4> substitutes{};

    static constexpr std::array<KeyFlags, 4> flags{KeyFlags::shift, KeyFlags::control, KeyFlags::option,
                                                   KeyFlags::command};

    const Key &operator[](TapKey key) const { return keys[key]; }

    /// 0 when the keyboard has no such key.
    TapKey keycode(KeyCode code) const {
        for (std::size_t key = 0; key < keys.size(); ++key)
            if (keys[key].code == code)
                return TapKey(key);
        return 0;
    }
};

}  // namespace pimloft
