// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

namespace pimloft {

class DisplayService;

/// Finds, reads and places other programs' windows. Has no state of its own; main thread.
///
/// Positions are read in accessibility points (from the primary display's top-left corner, y downwards);
/// frames are set in desktop points (from its bottom-left corner, y upwards).
class AXWindowHelper {
public:
    AXWindowHelper(WindowService &windows, DisplayService &displays)
        : windows_(windows), displays_(displays) {}

    /// The focused window of the application in front.
    std::optional<WindowReference> focusedWindow() const { return windows_.focusedWindow(); }
    std::optional<ProcessId> processId(const WindowReference &window) const {
        return windows_.processId(window);
    }
    std::optional<QPointF> getPosition(const WindowReference &window) const {
        return windows_.position(window);
    }
    std::optional<QSizeF> getSize(const WindowReference &window) const { return windows_.size(window); }

    /// The same rectangle in accessibility points; unchanged while there is no display.
    QRectF convertToAXCoordinates(const QRectF &rect) const;

    /// Moves and resizes a window to `rect` in desktop points. Always answers true: what the window made of
    /// it shows in the window.
    bool setFrame(const WindowReference &window, const QRectF &rect) const;

private:
    WindowService &windows_;
    DisplayService &displays_;
};

}  // namespace pimloft
