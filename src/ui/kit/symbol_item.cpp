// SPDX-License-Identifier: MIT
#include "ui/kit/symbol_item.h"

#include "ui/kit/symbols.h"

#include <QLinearGradient>

#include <utility>

namespace pimloft {

SymbolItem::SymbolItem(QQuickItem *parent) : QQuickPaintedItem(parent) {
    setSize(16);
}

void SymbolItem::paint(QPainter *painter) {
    if (!endColor_.isValid())
        return paintSymbol(*painter, name_, boundingRect(), color_);
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setColorAt(0, color_);
    gradient.setColorAt(1, endColor_);
    paintSymbol(*painter, name_, boundingRect(), gradient);
}

void SymbolItem::setName(const QString &name) {
    if (std::exchange(name_, name) == name)
        return;
    update();
    emit nameChanged();
}

void SymbolItem::setColor(const QColor &color) {
    if (std::exchange(color_, color) == color)
        return;
    update();
    emit colorChanged();
}

void SymbolItem::setEndColor(const QColor &color) {
    if (std::exchange(endColor_, color) == color)
        return;
    update();
    emit endColorChanged();
}

void SymbolItem::setSize(double size) {
    if (implicitWidth() == size)
        return;
    setImplicitSize(size, size);
    emit sizeChanged();
}

}  // namespace pimloft
