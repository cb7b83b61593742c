// SPDX-License-Identifier: MIT
#include "ui/kit/gradient_fill.h"

#include <QLinearGradient>
#include <QPainter>

namespace pimloft {

GradientFill::GradientFill(QQuickItem *parent) : QQuickPaintedItem(parent) {
    connect(this, &GradientFill::changed, this, [this] { update(); });
}

void GradientFill::paint(QPainter *painter) {
    const QRectF area = boundingRect();
    QLinearGradient gradient(area.topLeft(), area.topRight());
    gradient.setColorAt(0, leftColor_);
    gradient.setColorAt(1, rightColor_);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(gradient);
    painter->drawRoundedRect(area, radius_, radius_);
}

}  // namespace pimloft
