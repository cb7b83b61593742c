// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QImage>
#include <QQuickPaintedItem>

namespace pimloft {

/// A picture in a page that comes from memory: an image, which fills the item and is clipped to round
/// corners, or an icon, which is fitted into it. A decoration, whose meaning stands in the text beside it.
/// Main thread.
class PictureItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Picture)
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon NOTIFY iconChanged)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged)

public:
    explicit PictureItem(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    const QImage &image() const { return image_; }
    /// Its size in points becomes the implicit size.
    void setImage(const QImage &image);
    const QIcon &icon() const { return icon_; }
    void setIcon(const QIcon &icon);
    double radius() const { return radius_; }
    void setRadius(double radius);

signals:
    void imageChanged();
    void iconChanged();
    void radiusChanged();

private:
    QImage image_;
    QIcon icon_;
    double radius_ = 0;
};

}  // namespace pimloft
