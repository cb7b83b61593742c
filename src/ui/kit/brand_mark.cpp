// SPDX-License-Identifier: MIT
#include "ui/kit/brand_mark.h"

#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace pimloft {

namespace {

/// Below so many pixels of the screen the mark has fewer and bolder parts.
constexpr double smallestLarge = 48;

QSvgRenderer &drawing(double pixels) {
    static QSvgRenderer large(QStringLiteral(":/qt/qml/Pimloft/Kit/brand/pimloft.svg"));
    static QSvgRenderer small(QStringLiteral(":/qt/qml/Pimloft/Kit/brand/pimloft-small.svg"));
    return pixels < smallestLarge ? small : large;
}

}  // namespace

void paintBrandMark(QPainter &painter, const QRectF &square) {
    painter.setRenderHint(QPainter::Antialiasing);
    const double ratio = std::abs(painter.deviceTransform().m11());
    drawing(square.width() * ratio).render(&painter, square);
}

QIcon brandIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paintBrandMark(painter, pixmap.rect());
        icon.addPixmap(pixmap);
    }
    return icon;
}

BrandMark::BrandMark(QQuickItem *parent) : QQuickPaintedItem(parent) {
}

void BrandMark::paint(QPainter *painter) {
    paintBrandMark(*painter, boundingRect());
}

}  // namespace pimloft
