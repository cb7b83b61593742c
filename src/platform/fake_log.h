// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>

#include <string>

namespace pimloft {

/// What a fake desktop was asked to do, one readable line per call, in order. Shared by all its services.
class FakeLog {
public:
    void line(const QString &text) { text_ += text + QLatin1Char('\n'); }

    /// Everything since the last call.
    std::string take() { return std::exchange(text_, {}).toStdString(); }

private:
    QString text_;
};

/// "(x, y) w x h" with as many decimals as needed.
inline QString describe(const QRectF &rect) {
    return QStringLiteral("(%1, %2) %3 x %4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

}  // namespace pimloft
