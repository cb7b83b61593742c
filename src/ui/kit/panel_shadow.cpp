// SPDX-License-Identifier: MIT
#include "ui/kit/panel_shadow.h"

#include <QPainter>

namespace pimloft {

PanelShadow::PanelShadow(QQuickItem *parent) : QQuickPaintedItem(parent) {
    connect(this, &PanelShadow::changed, this, [this] { update(); });
}

void PanelShadow::paint(QPainter *painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    // Rings of growing rectangles add up to a slope; light from above moves them down a little.
    const QRectF panel = boundingRect().adjusted(extent_, extent_, -extent_, -extent_);
    const int steps = qRound(extent_);
    for (int step = steps; step > 0; --step) {
        const double grow = step - 0.5;
        const double closeness = 1 - double(step) / (steps + 1);
        painter->setBrush(QColor::fromRgbF(0, 0, 0, float(0.028 * closeness)));
        const double fall = std::min(extent_ - grow, extent_ * 0.2);
        painter->drawRoundedRect(panel.adjusted(-grow, -grow, grow, grow).translated(0, fall), radius_ + grow,
                                 radius_ + grow);
    }
}

}  // namespace pimloft
