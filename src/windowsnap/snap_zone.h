// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>

#include <optional>
#include <span>

namespace pimloft {

struct Display;

/// A part of a display that a dragged window can fill; `top` is all of it. Pure geometry; any thread.
///
/// Everything is in desktop points: origin at the bottom-left corner of the primary display, y growing
/// upwards.
enum class SnapZone { left, right, top, topLeft, topRight, bottomLeft, bottomRight };

/// The zone that a cursor selects on `screen`, or none. Touching an edge that `screen` shares with another of
/// `displays` selects nothing, corners included: a window is often dragged across it. `sensitivity` is the
/// width of the edge bands in points, inclusive. Allocates nothing.
std::optional<SnapZone> detect(QPointF cursorLocation, const Display &screen, double sensitivity,
                               std::span<const Display> displays);

/// The rectangle that `zone` fills in the visible area of `screen`.
QRectF targetFrame(SnapZone zone, const Display &screen);

}  // namespace pimloft
