// SPDX-License-Identifier: MIT
#include "app/ax_window_helper.h"

#include "base/geometry.h"
#include "platform/displays/displays.h"

namespace pimloft {

QRectF AXWindowHelper::convertToAXCoordinates(const QRectF &rect) const {
    const auto &displays = displays_.displays();
    return displays.empty() ? rect : flipped(rect, displays.front().frame.height());
}

bool AXWindowHelper::setFrame(const WindowReference &window, const QRectF &rect) const {
    windows_.place(window, convertToAXCoordinates(rect));
    return true;
}

}  // namespace pimloft
