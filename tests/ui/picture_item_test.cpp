// SPDX-License-Identifier: MIT
#include "ui/kit/picture_item.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(PictureItem, showsItsImageOnceWhateverItsScale) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        QImage image(qRound(40 * scale), qRound(20 * scale), QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter(&image).fillRect(image.width() / 2, 0, image.width(), image.height(), Qt::blue);
        image.setDevicePixelRatio(scale);
        PictureItem item;
        item.setImage(image);
        item.setSize(QSizeF(item.implicitWidth(), item.implicitHeight()));
        EXPECT_EQ(item.implicitWidth(), 40);

        QImage shown(40, 20, QImage::Format_RGB32);
        shown.fill(Qt::white);
        QPainter painter(&shown);
        item.paint(&painter);
        painter.end();
        for (const int x : {2, 8, 17})
            EXPECT_EQ(shown.pixelColor(x, 10), QColor(Qt::red)) << x << " at scale " << scale;
        for (const int x : {22, 28, 37})
            EXPECT_EQ(shown.pixelColor(x, 10), QColor(Qt::blue)) << x << " at scale " << scale;
    }
}

}  // namespace
}  // namespace pimloft
