// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>

#include <vector>

namespace pimloft {

struct Display;

/// The frame of a popover of `size` that hangs at `anchor`: below it in the upper half of the display, above
/// it in the lower half, beside it where a bar at the side holds it; never outside of the visible frame. All
/// in desktop points. Pure; any thread.
QRectF popoverFrame(QSizeF size, const QRectF &anchor, const Display &display);

/// The display that holds a point, else the nearest. `displays` is not empty.
const Display &displayAt(QPointF point, const std::vector<Display> &displays);

}  // namespace pimloft
