// SPDX-License-Identifier: MIT
#include "platform/mac/mac_picture.h"

#include "fake_appkit.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

class MacPicturesTest : public MacTest {};

std::uint8_t opacity(const MacPicture &picture, int x, int y) {
    return picture.pixels[std::size_t((y * picture.side + x) * 4 + 3)];
}

TEST_F(MacPicturesTest, areTheSystemsSymbolsAsTemplates) {
    const QIcon icon = templateIcon(QStringLiteral("square.on.square"));
    EXPECT_TRUE(icon.isMask());
    EXPECT_FALSE(icon.isNull());
    EXPECT_THAT(log(), testing::StartsWith("symbol square.on.square\nas a template\n"));
}

TEST_F(MacPicturesTest, areNoneForASymbolThatTheSystemLacks) {
    mac::desktop().hasSymbols = false;
    EXPECT_TRUE(templateIcon(QStringLiteral("no.such.symbol")).isNull());
    EXPECT_TRUE(symbolPicture("no.such.symbol", 16).pixels.empty());
}

TEST_F(MacPicturesTest, fillASquareWithASquarePicture) {
    const MacPicture picture = symbolPicture("square", 16);
    EXPECT_EQ(picture.pixels.size(), 16U * 16 * 4);
    EXPECT_EQ(opacity(picture, 0, 0), 255);
    EXPECT_EQ(opacity(picture, 15, 15), 255);
}

TEST_F(MacPicturesTest, keepTheShapeOfAPictureThatIsNoSquare) {
    mac::desktop().symbolWidth = 32;  // twice as wide as high
    const MacPicture picture = symbolPicture("keyboard", 16);
    EXPECT_EQ(opacity(picture, 8, 8), 255);
    EXPECT_EQ(opacity(picture, 0, 8), 255);
    EXPECT_EQ(opacity(picture, 8, 1), 0);
    EXPECT_EQ(opacity(picture, 8, 14), 0);
}

TEST_F(MacPicturesTest, comeInTheSizesOfListsAndFineScreens) {
    QList<QSize> sizes = templateIcon(QStringLiteral("square")).availableSizes();
    EXPECT_THAT(sizes,
                testing::UnorderedElementsAre(QSize(16, 16), QSize(32, 32), QSize(64, 64), QSize(128, 128)));
}

}  // namespace

}  // namespace pimloft::test
