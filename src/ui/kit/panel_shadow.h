// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickPaintedItem>

namespace pimloft {

/// The soft shadow around a rounded panel that leaves `extent` points free on each side of this item. Main
/// thread.
class PanelShadow : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double extent MEMBER extent_ NOTIFY changed)
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)

public:
    explicit PanelShadow(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

signals:
    void changed();

private:
    double extent_ = 0;
    double radius_ = 0;
};

}  // namespace pimloft
