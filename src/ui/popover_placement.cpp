// SPDX-License-Identifier: MIT
#include "ui/popover_placement.h"

#include "base/geometry.h"
#include "platform/displays/displays.h"

#include <algorithm>

namespace pimloft {

namespace {

/// Points between the popover and its anchor, and the edges of the visible frame.
constexpr double gap = 6;

}  // namespace

QRectF popoverFrame(QSizeF size, const QRectF &anchor, const Display &display) {
    const QRectF &visible = display.visibleFrame;
    const QRectF room = visible.adjusted(gap, gap, -gap, -gap);
    double x = midX(anchor) - size.width() / 2;
    double y = midY(anchor) > midY(display.frame) ? minY(anchor) - gap - size.height() : maxY(anchor) + gap;
    const bool inSideBar = maxX(anchor) <= minX(visible) || minX(anchor) >= maxX(visible);
    if (inSideBar) {
        x = midX(anchor) < midX(visible) ? minX(room) : maxX(room) - size.width();
        y = maxY(anchor) - size.height();
    }
    // Where it does not fit at all, its top left corner is what stays in view.
    x = std::max(std::min(x, maxX(room) - size.width()), minX(room));
    y = std::min(std::max(y, minY(room)), maxY(room) - size.height());
    return {x, y, size.width(), size.height()};
}

const Display &displayAt(QPointF point, const std::vector<Display> &displays) {
    return *std::min_element(displays.begin(), displays.end(), [point](const Display &a, const Display &b) {
        return squaredDistance(point, a.frame) < squaredDistance(point, b.frame);
    });
}

}  // namespace pimloft
