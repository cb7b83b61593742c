// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <xcb/xcb.h>

#include <optional>

namespace pimloft {

class X11Session;

/// What a window says that it is. Main thread.
enum class X11WindowType { application, desktop, dock };

/// The first of its types that is known; an application's window where it says nothing or is gone.
X11WindowType windowType(X11Session &session, xcb_window_t window);

/// The process on this computer that made the window: the server's word, else the window's own. Nothing when
/// the window is gone or neither knows.
std::optional<ProcessId> windowProcess(X11Session &session, xcb_window_t window);

}  // namespace pimloft
