// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <ostream>

/// How a failing test shows a rectangle. Found by its argument, so in the global namespace as QRectF is.
inline void PrintTo(const QRectF &rect, std::ostream *stream) {
    *stream << "(" << rect.x() << ", " << rect.y() << ") " << rect.width() << " x " << rect.height();
}
