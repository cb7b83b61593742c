// SPDX-License-Identifier: MIT
#pragma once

namespace pimloft {

/// What a program understands as the platform's own shortcuts, such as the one that pastes.
enum class ShortcutChord {
    control,       ///< Control and the key: nearly all
    controlShift,  ///< Control, Shift and the key: terminals, where Control and a key is a character
    shiftInsert,   ///< terminals that know one such shortcut, to paste: Shift and Insert
};

}  // namespace pimloft
