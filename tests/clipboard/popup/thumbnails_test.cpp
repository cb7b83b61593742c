// SPDX-License-Identifier: MIT
#include "clipboard/thumbnails.h"

#include "history.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QByteArray bytesOf(const ClipboardItem &item) {
    return std::get<ImageContent>(item.content).bytes;
}

/// Asks for a picture and waits for it.
QImage decoded(Thumbnails &thumbnails, const QUuid &id, const QByteArray &bytes) {
    QSignalSpy spy(&thumbnails, &Thumbnails::decoded);
    if (const auto image = thumbnails.thumbnail(id, bytes))
        return *image;
    EXPECT_TRUE(spy.wait());
    return thumbnails.thumbnail(id, bytes).value_or(QImage());
}

QString sizeOf(const ClipboardItem &item) {
    Thumbnails thumbnails;
    const QSizeF size = decoded(thumbnails, item.id, bytesOf(item)).deviceIndependentSize();
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

TEST(Thumbnails, areAllEquallyHigh) {
    EXPECT_EQ(sizeOf(test::image({600, 400})), QStringLiteral("72 x 48"));
    EXPECT_EQ(sizeOf(test::image({400, 400})), QStringLiteral("48 x 48"));
}

TEST(Thumbnails, showTheMiddleOfVeryWideAndVeryTallPictures) {
    EXPECT_EQ(sizeOf(test::image({3000, 30})), QStringLiteral("96 x 48"));
    EXPECT_EQ(sizeOf(test::image({30, 3000})), QStringLiteral("24 x 48"));
}

TEST(Thumbnails, endlessLinesAreNotEnlargedAsAWhole) {
    // As a whole they would take gigabytes.
    EXPECT_EQ(sizeOf(test::image({1, 500'000})), QStringLiteral("24 x 48"));
    EXPECT_EQ(sizeOf(test::image({500'000, 1})), QStringLiteral("96 x 48"));
}

TEST(Thumbnails, tinyPicturesAreEnlarged) {
    EXPECT_EQ(sizeOf(test::image({1, 1})), QStringLiteral("48 x 48"));
}

TEST(Thumbnails, showThePicture) {
    const ClipboardItem item = test::image({600, 400}, Qt::blue);
    Thumbnails thumbnails;
    EXPECT_EQ(decoded(thumbnails, item.id, bytesOf(item)).pixelColor(20, 20), QColor(Qt::blue));
}

TEST(Thumbnails, showPicturesInTheOtherFormatThatIsCopied) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImage picture(90, 60, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(&buffer, "TIFF"));
    Thumbnails thumbnails;
    EXPECT_EQ(decoded(thumbnails, QUuid::createUuid(), buffer.data()).pixelColor(20, 20), QColor(Qt::green));
}

TEST(Thumbnails, whatIsNoPictureHasANullImage) {
    Thumbnails thumbnails;
    const QUuid id = QUuid::createUuid();
    EXPECT_TRUE(decoded(thumbnails, id, "no picture").isNull());
    EXPECT_TRUE(thumbnails.thumbnail(id, "no picture").has_value()) << "it would be tried again and again";
}

TEST(Thumbnails, areMadeOfNoOtherFormatThatTheDesktopCouldRead) {
    const QByteArray drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)";
    const QByteArray bits = "#define a_width 1\n#define a_height 1\nstatic char a_bits[] = {0x01};\n";
    for (const QByteArray &bytes : {drawing, bits, QByteArray("P1 1 1 1")}) {
        Thumbnails thumbnails;
        EXPECT_TRUE(decoded(thumbnails, QUuid::createUuid(), bytes).isNull()) << bytes.toStdString();
    }
}

TEST(Thumbnails, aPictureIsDecodedOnce) {
    const ClipboardItem item = test::image({600, 400});
    Thumbnails thumbnails;
    QSignalSpy spy(&thumbnails, &Thumbnails::decoded);
    for (int each = 0; each < 3; ++each)
        EXPECT_FALSE(thumbnails.thumbnail(item.id, bytesOf(item)));
    EXPECT_TRUE(spy.wait());
    const QImage first = *thumbnails.thumbnail(item.id, bytesOf(item));
    EXPECT_EQ(thumbnails.thumbnail(item.id, bytesOf(item))->cacheKey(), first.cacheKey());
    EXPECT_EQ(spy.size(), 1);
}

TEST(Thumbnails, thoseOfEntriesThatAreGoneAreDropped) {
    const ClipboardItem kept = test::image({60, 40});
    const ClipboardItem gone = test::image({60, 40});
    Thumbnails thumbnails;
    for (const ClipboardItem &item : {kept, gone})
        decoded(thumbnails, item.id, bytesOf(item));
    thumbnails.keepOnly({kept.id});
    EXPECT_TRUE(thumbnails.thumbnail(kept.id, bytesOf(kept)));
    EXPECT_FALSE(thumbnails.thumbnail(gone.id, bytesOf(gone)));
}

TEST(Thumbnails, thoseOfEntriesThatGoWhileTheyAreDecodedAreDropped) {
    const ClipboardItem gone = test::image({4000, 3000});
    const ClipboardItem kept = test::image({60, 40});
    Thumbnails thumbnails;
    QSignalSpy spy(&thumbnails, &Thumbnails::decoded);
    EXPECT_FALSE(thumbnails.thumbnail(gone.id, bytesOf(gone)));
    thumbnails.keepOnly({kept.id});
    EXPECT_TRUE(thumbnails.isEmpty());
    // The one after it.
    decoded(thumbnails, kept.id, bytesOf(kept));
    EXPECT_EQ(spy.size(), 1);
    EXPECT_FALSE(thumbnails.thumbnail(gone.id, bytesOf(gone)));
}

TEST(Thumbnails, theNewestWishComesFirst) {
    Thumbnails thumbnails;
    QSignalSpy spy(&thumbnails, &Thumbnails::decoded);
    // Long enough that the others are asked for meanwhile.
    const ClipboardItem large = test::image({4000, 3000});
    const ClipboardItem scrolledPast = test::image({10, 10});
    const ClipboardItem inView = test::image({20, 20});
    for (const ClipboardItem &item : {large, scrolledPast, inView})
        EXPECT_FALSE(thumbnails.thumbnail(item.id, bytesOf(item)));
    while (spy.size() < 3)
        ASSERT_TRUE(spy.wait());
    EXPECT_EQ(spy.last().at(0).toUuid(), scrolledPast.id);
}

TEST(Thumbnails, mayGoWhileTheyDecode) {
    const ClipboardItem item = test::image({4000, 3000});
    Thumbnails thumbnails;
    EXPECT_FALSE(thumbnails.thumbnail(item.id, bytesOf(item)));
}

}  // namespace
}  // namespace pimloft
