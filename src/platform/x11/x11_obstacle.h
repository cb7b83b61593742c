// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

class X11Session;

/// What keeps this process from observing and controlling other programs.
enum class X11Obstacle {
    none,
    noServer,  ///< there is no connection to an X server
    wayland,   ///< other programs' windows and events are out of reach
    noXInput,  ///< the server lacks XInput 2.2
    noXTest,   ///< the server lacks XTEST
};

/// `sessionType` is what the login tells in XDG_SESSION_TYPE. Main thread.
X11Obstacle findObstacle(X11Session &session, const QString &sessionType);

}  // namespace pimloft
