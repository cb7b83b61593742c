// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QQuickPaintedItem>

namespace pimloft {

/// The icon of a program or a file in a page, as large as fits: a decoration, whose meaning stands in the
/// text beside it. A null icon draws nothing. Main thread.
class IconItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon NOTIFY iconChanged)

public:
    explicit IconItem(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    QIcon icon() const { return icon_; }
    void setIcon(const QIcon &icon);

signals:
    void iconChanged();

private:
    QIcon icon_;
};

}  // namespace pimloft
