// SPDX-License-Identifier: MIT
#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class ApplicationIcon : public testing::TestWithParam<int> {
protected:
    QImage icon() const {
        return QImage(QStringLiteral(PIMLOFT_ICONS "/%1.png").arg(GetParam()))
            .convertToFormat(QImage::Format_ARGB32);
    }
};

TEST_P(ApplicationIcon, hasItsSizeAndTransparentCorners) {
    EXPECT_EQ(icon().size(), QSize(GetParam(), GetParam()));
    EXPECT_LT(qAlpha(icon().pixel(0, 0)), 128);
}

TEST_P(ApplicationIcon, isWhiteOnTheBrandsColours) {
    const QImage image = icon();
    const int side = GetParam();
    int white = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const QColor color = image.pixelColor(x, y);
            white += color.alpha() == 255 && color.lightness() > 250;
        }
    EXPECT_GT(white, side * side / 12) << "the squares are not seen";
    const QColor edge = image.pixelColor(side / 2, side - side / 8);
    EXPECT_GT(edge.blue(), edge.red() + 60) << "between the two blues";
}

INSTANTIATE_TEST_SUITE_P(Packaging, ApplicationIcon, testing::Values(16, 22, 24, 32, 48, 64, 128, 256, 512));

}  // namespace
}  // namespace pimloft
