// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <QString>

namespace pimloft {

/// A media player as it introduces itself on the session bus. A value; any thread.
struct MprisPlayer {
    QString busName;         ///< after "org.mpris.MediaPlayer2.", without the number of an instance
    QString desktopEntry;    ///< the id of its desktop entry; empty where it does not say
    ProcessId processId{0};  ///< that of a sandbox's door keeper, for a sandboxed one
};

}  // namespace pimloft
