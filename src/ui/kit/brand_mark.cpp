// SPDX-License-Identifier: MIT
#include "ui/kit/brand_mark.h"

#include "ui/kit/symbols.h"
#include "ui/kit/theme.h"

#include <QPainter>

namespace pimloft {

void paintBrandMark(QPainter &painter, const QRectF &square) {
    const ThemeColors colors = ThemeColors::light();
    QLinearGradient gradient(square.topLeft(), square.bottomRight());
    gradient.setColorAt(0, colors.accent);
    gradient.setColorAt(1, colors.accentEnd);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    const double side = square.width();
    painter.drawRoundedRect(square, side * 0.26, side * 0.26);
    const double inset = side * 0.2;
    paintSymbol(painter, QStringLiteral("square.on.square"), square.adjusted(inset, inset, -inset, -inset),
                colors.onAccent);
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
