// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QQuickPaintedItem>

namespace pimloft {

/// A picture in a page that comes from memory: it fills the item and is clipped to round corners. A
/// decoration, whose meaning stands in the text beside it. Main thread.
class PictureItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Picture)
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged)

public:
    explicit PictureItem(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    const QImage &image() const { return image_; }
    /// Its size in points becomes the implicit size.
    void setImage(const QImage &image);
    double radius() const { return radius_; }
    void setRadius(double radius);

signals:
    void imageChanged();
    void radiusChanged();

private:
    QImage image_;
    double radius_ = 0;
};

}  // namespace pimloft
