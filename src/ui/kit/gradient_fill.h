// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace pimloft {

/// A rounded area that passes from one colour at its left to another at its right. Its edges are smooth,
/// which those of a Rectangle with a gradient are not where the processor draws. Main thread.
class GradientFill : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)
    Q_PROPERTY(QColor leftColor MEMBER leftColor_ NOTIFY changed)
    Q_PROPERTY(QColor rightColor MEMBER rightColor_ NOTIFY changed)

public:
    explicit GradientFill(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

signals:
    void changed();

private:
    double radius_ = 0;
    QColor leftColor_;
    QColor rightColor_;
};

}  // namespace pimloft
