// SPDX-License-Identifier: MIT
#include "ui/kit/gradient_fill.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QImage filled(QSize size, double radius, QColor left, QColor right) {
    GradientFill fill;
    fill.setSize(size);
    fill.setProperty("radius", radius);
    fill.setProperty("leftColor", left);
    fill.setProperty("rightColor", right);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    fill.paint(&painter);
    return image;
}

TEST(GradientFill, passesFromOneColourToTheOther) {
    const QImage image = filled({100, 10}, 0, Qt::red, Qt::blue);
    EXPECT_GT(image.pixelColor(1, 5).red(), 240);
    EXPECT_NEAR(image.pixelColor(50, 5).red(), image.pixelColor(50, 5).blue(), 5);
    EXPECT_GT(image.pixelColor(98, 5).blue(), 240);
}

TEST(GradientFill, hasSmoothEdgesWhereItIsRound) {
    const QImage image = filled({38, 22}, 11, Qt::red, Qt::red);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(19, 11).alpha(), 255);
    int between = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            between += image.pixelColor(x, y).alpha() % 255 != 0;
    EXPECT_GT(between, 20);
}

}  // namespace
}  // namespace pimloft
