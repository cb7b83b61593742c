// SPDX-License-Identifier: MIT
#include "ui/kit/icon_item.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace pimloft {

IconItem::IconItem(QQuickItem *parent) : QQuickPaintedItem(parent) {
}

void IconItem::paint(QPainter *painter) {
    // Asked for in the pixels of the screen: a larger picture of a theme may be another drawing.
    const double ratio = std::abs(painter->deviceTransform().m11());
    const double side = std::min(width(), height());
    const int pixels = std::max(1, qRound(side * ratio));
    QPixmap pixmap = icon_.pixmap(QSize(pixels, pixels), 1.0);
    if (pixmap.isNull())
        return;
    const double scale = side / std::max(pixmap.width(), pixmap.height());
    const QSizeF size = QSizeF(pixmap.size()) * scale;
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(QRectF({(width() - size.width()) / 2, (height() - size.height()) / 2}, size), pixmap,
                        QRectF(pixmap.rect()));
}

void IconItem::setIcon(const QIcon &icon) {
    if (icon_.cacheKey() == icon.cacheKey())
        return;
    icon_ = icon;
    update();
    emit iconChanged();
}

}  // namespace pimloft
