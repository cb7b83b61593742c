// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <ostream>

/// Lets a failed expectation show Qt's values as text. Found by GoogleTest in the types' own namespace.

inline void PrintTo(const QString &value, std::ostream *out) {
    *out << '"' << value.toStdString() << '"';
}
inline void PrintTo(const QPoint &value, std::ostream *out) {
    *out << '(' << value.x() << ", " << value.y() << ')';
}
inline void PrintTo(const QPointF &value, std::ostream *out) {
    *out << '(' << value.x() << ", " << value.y() << ')';
}
inline void PrintTo(const QRect &value, std::ostream *out) {
    *out << value.width() << 'x' << value.height() << '+' << value.x() << '+' << value.y();
}
