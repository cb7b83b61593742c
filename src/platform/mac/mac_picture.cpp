// SPDX-License-Identifier: MIT
#include "platform/mac/mac_picture.h"

#include <QImage>
#include <QPixmap>

namespace pimloft {

namespace {

QPixmap pixmapOf(const MacPicture &picture) {
    return QPixmap::fromImage(QImage(picture.pixels.data(), picture.side, picture.side, picture.side * 4,
                                     QImage::Format_RGBA8888_Premultiplied)
                                  .copy());
}

}  // namespace

QIcon iconOf(const std::function<MacPicture(int side)> &draw) {
    QIcon icon;
    for (const int side : {16, 32, 64, 128}) {
        const MacPicture picture = draw(side);
        if (!picture.pixels.empty())
            icon.addPixmap(pixmapOf(picture));
    }
    return icon;
}

QIcon templateIcon(const QString &symbol) {
    QIcon icon = iconOf([name = symbol.toStdString()](int side) { return symbolPicture(name, side); });
    if (!icon.isNull())
        icon.setIsMask(true);
    return icon;
}

}  // namespace pimloft
