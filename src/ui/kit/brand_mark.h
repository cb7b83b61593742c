// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QQuickPaintedItem>

class QPainter;

namespace pimloft {

/// Paints the brand's mark into a square: the application icon, the same in every look, drawn for the number
/// of pixels that it gets. Main thread.
void paintBrandMark(QPainter &painter, const QRectF &square);

/// The mark as an icon of windows, sharp at the sizes that window managers ask for.
QIcon brandIcon();

/// The mark in a page: a decoration. Main thread.
class BrandMark : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit BrandMark(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;
};

}  // namespace pimloft
