// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

/// What can be seen of a running program from outside: by what its desktop entry and its identity are found.
/// Texts are empty where the program does not say. A value; any thread.
struct ProgramTraits {
    QString windowClass = {};       ///< the second part of WM_CLASS
    QString windowInstance = {};    ///< the first part
    QString gtkApplicationId = {};  ///< _GTK_APPLICATION_ID
    QString executable = {};        ///< base name of the running file
    QString launchedEntry = {};     ///< path of the desktop entry that this very process was started from

    friend bool operator==(const ProgramTraits &, const ProgramTraits &) = default;
};

}  // namespace pimloft
