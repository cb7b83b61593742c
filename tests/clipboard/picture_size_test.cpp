// SPDX-License-Identifier: MIT
#include "clipboard/picture_size.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QByteArray png(QSize size) {
    QBuffer buffer;
    QImage(size, QImage::Format_RGB32).save(&buffer, "png");
    return buffer.data();
}

QByteArray number(quint32 value, int bytes, bool isBigEndian) {
    QByteArray text;
    for (int index = 0; index < bytes; ++index)
        text += char(value >> 8 * (isBigEndian ? bytes - 1 - index : index));
    return text;
}

/// A TIFF file's header and directory; the width as a short number, the height as a long one.
QByteArray tiff(QSize size, bool isBigEndian) {
    const auto word = [&](int value) { return number(quint32(value), 2, isBigEndian); };
    const auto large = [&](int value) { return number(quint32(value), 4, isBigEndian); };
    return (isBigEndian ? QByteArray("MM") : QByteArray("II")) + word(42) + large(10) + "xx" + word(3) +
           word(254) + word(4) + large(1) + large(0) + word(256) + word(3) + large(1) + word(size.width()) +
           word(0) + word(257) + word(4) + large(1) + large(size.height()) + large(0);
}

TEST(PictureSize, isReadFromAPng) {
    EXPECT_EQ(pictureSize(png({1440, 900})), QSize(1440, 900));
    EXPECT_EQ(pictureSize(png({1, 3})), QSize(1, 3));
}

TEST(PictureSize, isReadFromATiffOfEitherByteOrder) {
    EXPECT_EQ(pictureSize(tiff({1440, 900}, true)), QSize(1440, 900));
    EXPECT_EQ(pictureSize(tiff({1440, 900}, false)), QSize(1440, 900));
}

TEST(PictureSize, isNothingForWhatIsNoPicture) {
    EXPECT_FALSE(pictureSize({}).isValid());
    EXPECT_FALSE(pictureSize("text").isValid());
    EXPECT_FALSE(pictureSize(QByteArray(1000, '\xFF')).isValid());
    EXPECT_FALSE(pictureSize(png({7, 7}).replace("IHDR", "JHDR")).isValid());
}

TEST(PictureSize, isNothingForAHeaderThatIsCutOffAnywhere) {
    for (qsizetype size = 0; size < 24; ++size)
        EXPECT_FALSE(pictureSize(png({7, 7}).first(size)).isValid()) << size;
    const QByteArray whole = tiff({7, 7}, false);
    for (qsizetype size = 0; size < whole.size() - 8; ++size)
        EXPECT_FALSE(pictureSize(whole.first(size)).isValid()) << size;
}

TEST(PictureSize, isNothingForASizeThatCannotBe) {
    QByteArray bytes = png({7, 7});
    bytes.replace(16, 4, QByteArray(4, '\0'));
    EXPECT_EQ(pictureSize(bytes), QSize());
    bytes.replace(16, 4, QByteArray(4, '\xFF'));
    EXPECT_EQ(pictureSize(bytes), QSize());
    bytes = png({7, 7});
    bytes.replace(20, 4, QByteArray(4, '\xFF'));
    EXPECT_EQ(pictureSize(bytes), QSize());
    EXPECT_FALSE(pictureSize(tiff({0, 7}, true)).isValid());
    EXPECT_EQ(pictureSize(tiff({7, -1}, true)), QSize());
}

}  // namespace
}  // namespace pimloft
