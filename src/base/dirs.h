// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QProcessEnvironment;

namespace pimloft {

/// The folders that belong to this user's Pimloft. Read once at start and handed in; any thread.
struct Dirs {
    QString preferences;  ///< holds preferences.json
    QString support;      ///< the history, the mappings and the templates
    QString autostart;    ///< where the desktop looks for programs to start at login
    QString runtime;      ///< sockets and locks of this login; gone after it
    QString help;         ///< the installed help pages
    QString keyGuard;     ///< the program that is started beside a key tap

    /// The places that the desktop's base-directory rules give for `environment`. Creates nothing.
    static Dirs fromEnvironment(const QProcessEnvironment &environment);
};

}  // namespace pimloft
