// SPDX-License-Identifier: MIT
#include "ui/kit/picture_item.h"

#include <QPainter>
#include <QPainterPath>

#include <utility>

namespace pimloft {

PictureItem::PictureItem(QQuickItem *parent) : QQuickPaintedItem(parent) {
}

void PictureItem::paint(QPainter *painter) {
    if (image_.isNull())
        return;
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath clip;
    clip.addRoundedRect(boundingRect(), radius_, radius_);
    // A brush has smooth edges where a clip has none. It would count an image's scale a second time.
    QImage pixels = image_;
    pixels.setDevicePixelRatio(1);
    QBrush brush(pixels);
    brush.setTransform(QTransform::fromScale(width() / pixels.width(), height() / pixels.height()));
    painter->fillPath(clip, brush);
}

void PictureItem::setImage(const QImage &image) {
    if (image_.cacheKey() == image.cacheKey())
        return;
    image_ = image;
    const QSizeF size = image.deviceIndependentSize();
    setImplicitSize(size.width(), size.height());
    update();
    emit imageChanged();
}

void PictureItem::setRadius(double radius) {
    if (std::exchange(radius_, radius) == radius)
        return;
    update();
    emit radiusChanged();
}

}  // namespace pimloft
