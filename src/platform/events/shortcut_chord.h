// SPDX-License-Identifier: MIT
#pragma once

namespace pimloft {

/// How a program wants to be told one of the platform's own shortcuts, such as "paste". A value; any thread.
enum class ShortcutChord {
    control,       ///< Control and the key: nearly every program
    controlShift,  ///< Control, Shift and the key: terminals, where Control and a letter is typed text
    shiftInsert,   ///< Shift and Insert, which takes the primary selection: the oldest terminals
};

}  // namespace pimloft
