// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRect>

#include <xcb/xcb.h>

#include <optional>

namespace pimloft {

class X11Session;

/// Where a window is on the root, in native pixels. A value.
struct X11WindowGeometry {
    QRect client;  ///< what the program draws in, its own shadow included
    QMargins
        extents;  ///< from the client out to the visible frame; negative where the program draws a shadow

    /// What the user sees: with the title bar, without the shadow.
    QRect frame() const { return client.marginsAdded(extents); }
};

/// Reads a window's geometry with one round trip. Nothing when the window is gone. Main thread.
std::optional<X11WindowGeometry> readGeometry(X11Session &session, xcb_window_t window);

}  // namespace pimloft
