// SPDX-License-Identifier: MIT
#include "ui/kit/symbols.h"

#include <QDirIterator>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QImage drawn(const QString &name, int side, double ratio, const QBrush &tint) {
    QImage image(qRound(side * ratio), qRound(side * ratio), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintSymbol(painter, name, QRectF(0, 0, side, side), tint);
    return image;
}

/// How many pixels are fully covered, and how many at all.
std::pair<int, int> coverage(const QImage &image) {
    int full = 0;
    int some = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = image.pixelColor(x, y).alpha();
            full += alpha == 255;
            some += alpha > 0;
        }
    return {full, some};
}

/// The names that the program's own sources ask for.
QSet<QString> namesInUse() {
    static const QRegularExpression name(QStringLiteral(
        "\"((?:square|rectangle|doc|folder|keyboard|speaker|gear|chevron|exclamationmark|checkmark|"
        "arrow|lock|sparkles|delete|function|minus|timer|circle|terminal|app)(?:\\.[a-z0-9]+)*)\""));
    QSet<QString> names;
    QDirIterator files(QStringLiteral(PIMLOFT_SOURCE_DIR "/src"),
                       {QStringLiteral("*.qml"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        auto matches = name.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            names.insert(matches.next().captured(1));
    }
    return names;
}

TEST(Symbols, everyNameInUseHasADrawing) {
    const QSet<QString> names = namesInUse();
    EXPECT_GE(names.size(), 7) << "the sources were not found";
    for (const QString &name : names)
        EXPECT_TRUE(hasSymbol(name)) << name.toStdString();
}

TEST(Symbols, everyDrawingLeavesAMarkInTheTintOnly) {
    QDirIterator files(QStringLiteral(":/qt/qml/Pimloft/Kit/symbols"));
    int count = 0;
    while (files.hasNext()) {
        files.next();
        const QString name = files.fileInfo().completeBaseName();
        const QImage image = drawn(name, 22, 1, QColor(Qt::red));
        EXPECT_GT(coverage(image).second, 20) << name.toStdString() << " is almost empty";
        EXPECT_LT(coverage(image).second, 22 * 22 * 9 / 10) << name.toStdString() << " is a blot";
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ASSERT_EQ(image.pixelColor(x, y).blue(), 0) << name.toStdString();
        ++count;
    }
    EXPECT_GE(count, 14);
}

TEST(Symbols, areDrawnWithTheDevicesPixels) {
    const auto [full, some] = coverage(drawn(QStringLiteral("gear"), 24, 2, QColor(Qt::black)));
    const auto [coarseFull, coarseSome] = coverage(drawn(QStringLiteral("gear"), 24, 1, QColor(Qt::black)));
    EXPECT_GT(some, 3 * coarseSome);
    EXPECT_GT(full, 4 * coarseFull) << "enlarged instead of drawn";
}

TEST(Symbols, anUnknownNameDrawsNothing) {
    EXPECT_FALSE(hasSymbol(QStringLiteral("no.such.symbol")));
    EXPECT_FALSE(hasSymbol(QString()));
    EXPECT_EQ(coverage(drawn(QStringLiteral("no.such.symbol"), 22, 1, QColor(Qt::black))).second, 0);
}

TEST(Symbols, anIconIsDrawnAtEachSizeAndOffersThoseOfTrays) {
    const QIcon icon = symbolIcon(QStringLiteral("square.on.square"), Qt::white, Qt::black);
    EXPECT_TRUE(icon.availableSizes().contains(QSize(22, 22)));
    for (const QSize &size : icon.availableSizes())
        EXPECT_EQ(icon.pixmap(size).size(), size);
}

TEST(Symbols, aHaloSetsTheIconOffFromAGroundOfItsOwnColour) {
    const QImage plain = symbolIcon(QStringLiteral("gear"), Qt::white).pixmap(22, 22).toImage();
    const QImage haloed = symbolIcon(QStringLiteral("gear"), Qt::white, Qt::black).pixmap(22, 22).toImage();
    int dark = 0;
    for (int y = 0; y < haloed.height(); ++y)
        for (int x = 0; x < haloed.width(); ++x)
            dark += haloed.pixelColor(x, y).alpha() > 128 && haloed.pixelColor(x, y).lightness() < 100;
    EXPECT_GT(dark, 40);
    EXPECT_GT(coverage(haloed).second, coverage(plain).second);
}

}  // namespace
}  // namespace pimloft
