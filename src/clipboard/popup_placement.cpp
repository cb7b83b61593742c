// SPDX-License-Identifier: MIT
#include "clipboard/popup_placement.h"

#include "base/geometry.h"
#include "platform/displays/displays.h"

#include <algorithm>

namespace pimloft {

namespace {

constexpr double margin = 8;

}  // namespace

QRectF frameNearCursor(QSizeF size, QPointF pointer, const QRectF &visibleFrame) {
    const double x =
        std::max(minX(visibleFrame) + margin,
                 std::min(maxX(visibleFrame) - size.width() - margin, pointer.x() - size.width() / 2));
    const double y =
        std::max(minY(visibleFrame) + margin,
                 std::min(maxY(visibleFrame) - size.height() - margin, pointer.y() - size.height() / 2));
    return {QPointF(x, y), size};
}

std::optional<Display> displayUnder(QPointF pointer, const std::vector<Display> &displays,
                                    const std::optional<Display> &mainDisplay) {
    const auto found = std::find_if(displays.begin(), displays.end(), [pointer](const Display &display) {
        return display.frame.contains(pointer);
    });
    return found != displays.end() ? *found : mainDisplay;
}

}  // namespace pimloft
