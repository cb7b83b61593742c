// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"
#include "platform/x11/x11_session.h"

#include <QString>

#include <vector>

namespace pimloft {

/// A window as it names its program. Texts are empty where the window does not say.
struct X11WindowNames {
    QString instance;  ///< WM_CLASS, the first part
    QString className;
    QString gtkApplicationId;
};

X11WindowNames windowNames(X11Session &session, xcb_window_t window);

/// A process of this computer that the X server talks to.
struct X11Client {
    ProcessId process;
    X11WindowNames names;               ///< of its first window in the task list
    std::vector<xcb_window_t> windows;  ///< in the task list, the oldest first
};

/// Every process that is connected to the X server or has a window in the task list, each once. Main thread;
/// costs three round trips whatever their number.
std::vector<X11Client> x11Clients(X11Session &session);

}  // namespace pimloft
