// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace pimloft {

/// A system symbol in a page, tinted: a decoration, whose meaning stands in the text beside it. Main thread.
class SymbolItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Symbol)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(QColor endColor READ endColor WRITE setEndColor NOTIFY endColorChanged)
    Q_PROPERTY(double size READ size WRITE setSize NOTIFY sizeChanged)

public:
    explicit SymbolItem(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    QString name() const { return name_; }
    void setName(const QString &name);
    QColor color() const { return color_; }
    void setColor(const QColor &color);
    /// When it is valid, the tint runs from `color` at the top left to it at the bottom right.
    QColor endColor() const { return endColor_; }
    void setEndColor(const QColor &color);
    /// Its implicit width and height in points.
    double size() const { return implicitWidth(); }
    void setSize(double size);

signals:
    void nameChanged();
    void colorChanged();
    void endColorChanged();
    void sizeChanged();

private:
    QString name_;
    QColor color_ = Qt::black;
    QColor endColor_;
};

}  // namespace pimloft
