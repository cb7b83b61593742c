// SPDX-License-Identifier: MIT
#include "ui/kit/symbols.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

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
        "\"((?:square|rectangle|doc|folder(?=\\.)|keyboard|speaker|gear|chevron|exclamationmark|checkmark|"
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

QStringList allNames() {
    QStringList names;
    QDirIterator files(QStringLiteral(":/qt/qml/Pimloft/Kit/symbols"));
    while (files.hasNext()) {
        files.next();
        names << files.fileInfo().completeBaseName();
    }
    names.sort();
    return names;
}

/// The smallest rectangle that holds all ink.
QRect inkOf(const QImage &image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 32)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

TEST(Symbols, fillTheSameSquare) {
    const int side = 96;
    for (const QString &name : allNames()) {
        const QRect ink = inkOf(drawn(name, side, 1, Qt::black));
        EXPECT_TRUE(QRect(3, 3, side - 4, side - 4).contains(ink)) << name.toStdString() << " goes beyond it";
        EXPECT_GE(std::max(ink.width(), ink.height()), side * 6 / 10)
            << name.toStdString() << " is too small";
        EXPECT_NEAR(ink.center().y(), side / 2, side / 16) << name.toStdString() << " hangs or floats";
    }
}

TEST(Symbols, areDrawnWithOnePen) {
    static const QRegularExpression root(
        QStringLiteral("<svg [^>]*viewBox=\"0 0 24 24\"[^>]*stroke-width=\"([0-9.]+)\"[^>]*"
                       "stroke-linecap=\"round\" stroke-linejoin=\"round\""));
    for (const QString &name : allNames()) {
        QFile file(QStringLiteral(":/qt/qml/Pimloft/Kit/symbols/%1.svg").arg(name));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        const QString svg = QString::fromUtf8(file.readAll());
        if (!svg.contains(QLatin1String("stroke=")))
            continue;  // a silhouette
        const auto pen = root.match(svg);
        ASSERT_TRUE(pen.hasMatch()) << name.toStdString();
        // Lines that stand alone are a little bolder, to look alike.
        EXPECT_GE(pen.captured(1).toDouble(), 1.75) << name.toStdString();
        EXPECT_LE(pen.captured(1).toDouble(), 2) << name.toStdString();
    }
}

/// How dark the touched pixels are on average: half of it when every line falls between two.
double darkness(const QImage &image) {
    double sum = 0;
    int touched = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            sum += alpha / 255.0;
            touched += alpha > 0;
        }
    return sum / touched;
}

TEST(Symbols, haveBolderLinesWhenTheyAreSmall) {
    const auto inkShare = [](int side) {
        const QImage image = drawn(QStringLiteral("circle"), side, 8, Qt::black);
        return double(coverage(image).second) / image.width() / image.height();
    };
    EXPECT_GT(inkShare(16), inkShare(24) * 1.05);
    EXPECT_GT(inkShare(24), inkShare(48) * 1.15);
}

/// Keeps a picture of all of them, at the sizes and scales in which they are shown, to be looked at.
TEST(Symbols, areSharpAtEverySizeAndScale) {
    constexpr int sizes[] = {16, 20, 24, 32, 48};
    const QStringList names = allNames();
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage sheet(qRound(180 * scale), qRound(52 * names.size() * scale), QImage::Format_RGB32);
        sheet.setDevicePixelRatio(scale);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        for (qsizetype row = 0; row < names.size(); ++row) {
            double x = 4;
            for (const int size : sizes) {
                paintSymbol(painter, names[row], QRectF(x, 52 * double(row) + 2, size, size), Qt::black);
                x += size + 8;
                EXPECT_GT(darkness(drawn(names[row], size, scale, Qt::black)), 0.4)
                    << names[row].toStdString() << " is a blur at " << size;
            }
        }
        painter.end();
        const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/../screenshots/ui");
        QDir().mkpath(folder);
        sheet.save(QStringLiteral("%1/symbols@%2x.png").arg(folder).arg(scale));
    }
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
