// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <optional>
#include <vector>

namespace pimloft {

struct Display;

/// The frame of a popup of `size` that is centred on the pointer and kept inside `visibleFrame` with a margin
/// around it; where there is too little room the lower and the left margin win. All in desktop points. Pure;
/// any thread.
QRectF frameNearCursor(QSizeF size, QPointF pointer, const QRectF &visibleFrame);

/// The first display whose frame holds the pointer, its edges included, else `mainDisplay`. Pure; any thread.
std::optional<Display> displayUnder(QPointF pointer, const std::vector<Display> &displays,
                                    const std::optional<Display> &mainDisplay);

}  // namespace pimloft
