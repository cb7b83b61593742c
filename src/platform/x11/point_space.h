// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>

namespace pimloft {

/// How native pixels of the X root window become points. A value; any thread.
///
/// Native pixels count from the root's top-left corner. Desktop points count from the primary monitor's
/// bottom-left corner, y upwards; accessibility points from its top-left corner, y downwards.
struct PointSpace {
    QRect primary;     ///< the primary monitor, native pixels
    double scale = 1;  ///< native pixels per point, the same on every monitor

    QRectF toDesktop(const QRect &native) const;
    QPointF toDesktop(QPoint native) const;
    QRectF toAccessibility(const QRect &native) const;
    QPointF toAccessibility(QPoint native) const;

    /// Edges are rounded, not sizes: rectangles that touch in points touch in pixels.
    QRect desktopToNative(const QRectF &desktop) const;
    QRect accessibilityToNative(const QRectF &accessibility) const;
};

}  // namespace pimloft
