// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>

/// Edges of rectangles in a space whose y grows upwards, where QRectF::top() would be the lower edge.
/// Pure; any thread.
namespace pimloft {

inline double minX(const QRectF &rect) {
    return rect.x();
}
inline double midX(const QRectF &rect) {
    return rect.x() + rect.width() / 2;
}
inline double maxX(const QRectF &rect) {
    return rect.x() + rect.width();
}
inline double minY(const QRectF &rect) {
    return rect.y();
}
inline double midY(const QRectF &rect) {
    return rect.y() + rect.height() / 2;
}
inline double maxY(const QRectF &rect) {
    return rect.y() + rect.height();
}

/// How far a point is from a rectangle, squared; zero inside.
inline double squaredDistance(QPointF point, const QRectF &rect) {
    const double x = std::clamp(point.x(), minX(rect), maxX(rect)) - point.x();
    const double y = std::clamp(point.y(), minY(rect), maxY(rect)) - point.y();
    return x * x + y * y;
}

/// Mirrors a rectangle between a top-left and a bottom-left origin; `height` is the primary display's.
inline QRectF flipped(const QRectF &rect, double height) {
    return {rect.x(), height - rect.y() - rect.height(), rect.width(), rect.height()};
}

/// Mirrors a point in the same way.
inline QPointF flipped(QPointF point, double height) {
    return {point.x(), height - point.y()};
}

}  // namespace pimloft
