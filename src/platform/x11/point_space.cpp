// SPDX-License-Identifier: MIT
#include "platform/x11/point_space.h"

#include "base/geometry.h"

namespace pimloft {

QRectF PointSpace::toAccessibility(const QRect &native) const {
    return {toAccessibility(native.topLeft()), QSizeF(native.size()) / scale};
}

QPointF PointSpace::toAccessibility(QPoint native) const {
    return QPointF(native - primary.topLeft()) / scale;
}

QRectF PointSpace::toDesktop(const QRect &native) const {
    return flipped(toAccessibility(native), primary.height() / scale);
}

QPointF PointSpace::toDesktop(QPoint native) const {
    return flipped(toAccessibility(native), primary.height() / scale);
}

QRect PointSpace::desktopToNative(const QRectF &desktop) const {
    return accessibilityToNative(flipped(desktop, primary.height() / scale));
}

QRect PointSpace::accessibilityToNative(const QRectF &accessibility) const {
    const QPoint topLeft(qRound(minX(accessibility) * scale), qRound(minY(accessibility) * scale));
    const QPoint end(qRound(maxX(accessibility) * scale), qRound(maxY(accessibility) * scale));
    return QRect(topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())).translated(primary.topLeft());
}

}  // namespace pimloft
