// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <optional>
#include <xcb/xcb.h>

namespace pimloft {

/// The process that made a window, as the server knows it by the connection, which nobody can claim falsely.
/// Nothing for a program on another computer, and where the server does not tell. The number of a window that
/// is gone still tells whose it was. The thread of the connection.
std::optional<ProcessId> clientProcess(xcb_connection_t *connection, xcb_window_t window);

}  // namespace pimloft
