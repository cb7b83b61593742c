// SPDX-License-Identifier: MIT
#include "measures.h"
#include "stage.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace pimloft::bench {

namespace {

constexpr int entries = 200;
constexpr int everyImage = 4;  ///< of which a quarter are images
constexpr QSize imageSize(1280, 800);

constexpr QPoint pointer(800, 500);
/// In the lower edge of the popup, where nothing but its ground is.
constexpr QPoint onTheGround(800, 700);

QByteArray image(int number) {
    QImage picture(imageSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * number, y + number, (x ^ y) + number));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return buffer.data();
}

QJsonObject content(int number) {
    if (number % everyImage == 0)
        return {{QStringLiteral("image"),
                 QJsonObject{{QStringLiteral("_0"), QString::fromLatin1(image(number).toBase64())}}}};
    return {{QStringLiteral("text"),
             QJsonObject{{QStringLiteral("_0"), QStringLiteral("Entry %1 of the history, copied from a "
                                                               "letter that was long enough for two lines")
                                                    .arg(number)}}}};
}

/// As an earlier run of the program would have left it.
void writeHistory(const QString &home) {
    QJsonArray history;
    for (int number = 0; number < entries; ++number)
        history.append(
            QJsonObject{{QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper()},
                        {QStringLiteral("content"), content(number)},
                        {QStringLiteral("sourceApp"), QStringLiteral("Editor")},
                        {QStringLiteral("timestamp"), 800'000'000.0 - 60.0 * number},
                        {QStringLiteral("isPinned"), number % 10 == 0}});
    const QString folder = home + QStringLiteral("/data/Pimloft");
    QDir().mkpath(folder);
    QFile file(folder + QStringLiteral("/clipboard_history.json"));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no history can be written");
    file.write(QJsonDocument(history).toJson(QJsonDocument::Compact));
}

bool isClosed(const Stage &stage) {
    return stage.desktop.unmanagedWindows(QStringLiteral("pimloft")).empty();
}

/// Milliseconds from the shortcut until the popup is seen. It is closed again on return.
double openPopup(Stage &stage) {
    const QRgb before = stage.desktop.pixel(onTheGround);
    stage.hands.press(KEY_LEFTMETA);
    stage.hands.press(KEY_LEFTSHIFT);
    stage.hands.press(KEY_V);
    const double taken = millisecondsUntil([&] { return stage.desktop.pixel(onTheGround) != before; });
    for (const int key : {KEY_V, KEY_LEFTSHIFT, KEY_LEFTMETA})
        stage.hands.release(key);
    stage.hands.tap(KEY_ESC);
    if (!test::waitUntil([&] { return isClosed(stage); }))
        qFatal("the popup does not close");
    return taken;
}

}  // namespace

void measurePopup(Table &table, Extent extent) {
    Figure cold{QStringLiteral("popup, shortcut to first frame, first time"), QStringLiteral("ms"), 60, {}};
    Figure early{QStringLiteral("popup, shortcut to first frame, right after the start"),
                 QStringLiteral("ms"),
                 std::nullopt,
                 {}};
    Figure warm{QStringLiteral("popup, shortcut to first frame, engine alive"), QStringLiteral("ms"), 30, {}};
    Stage stage;
    writeHistory(stage.session.home());
    stage.openWindow(
        QStringLiteral("xterm"),
        {QStringLiteral("-T"), QStringLiteral("Front"), QStringLiteral("-e"), QStringLiteral("cat")},
        QStringLiteral("Front"));
    stage.hands.moveTo(pointer);
    for (int run = 0; run < (extent.quick ? 3 : 11); ++run) {
        // At once it waits for the history, which is 39 MB and being read.
        stage.startPimloft();
        early.samples.push_back(openPopup(stage));
        stage.startPimloft();
        rest(std::chrono::seconds(1));
        cold.samples.push_back(openPopup(stage));
        for (int again = 0; again < (extent.quick ? 5 : 10); ++again)
            warm.samples.push_back(openPopup(stage));
    }
    table.add(early);
    table.add(cold);
    table.add(warm);
    if (extent.quick)
        return;
    // The daily case: it has been used, but not for some minutes.
    Figure rested{QStringLiteral("popup, shortcut to first frame, after a minute without"),
                  QStringLiteral("ms"),
                  60,
                  {}};
    for (int run = 0; run < 3; ++run) {
        rest(std::chrono::seconds(65));
        rested.samples.push_back(openPopup(stage));
    }
    table.add(rested);
}

}  // namespace pimloft::bench
