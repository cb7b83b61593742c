// SPDX-License-Identifier: MIT
#include "soak/copies.h"

#include <QBuffer>
#include <QImage>

namespace pimloft::test {

namespace {

const QByteArray largeText = QByteArray("a line of a large text, as logs have them\n").repeated(50'000);

void offer(SoakDesk &desk, const char *target, const QByteArray &content) {
    desk.copy(QStringLiteral("xclip"),
              {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"),
               QLatin1String(target)},
              content);
}

QByteArray words(int number) {
    return "entry " + QByteArray::number(number) + " of a long day";
}

QByteArray picture(int number, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x + number, y * 3, (x * y) ^ number));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

void copyFromAnEditor(SoakDesk &desk, xcb_window_t window, int number) {
    desk.raise(window);
    desk.hands.type(words(number).constData());
    desk.hands.chord({KEY_LEFTCTRL, KEY_A});
    desk.hands.chord({KEY_LEFTCTRL, KEY_C});
    desk.hands.tap(KEY_DELETE);
    desk.awaitKeys();
}

/// The kinds follow each other in one order, so that a history of a fixed length always holds the same mix.
void copyNumber(SoakDesk &desk, int number) {
    switch (number % 10) {
    case 0:
        return offer(desk, "UTF8_STRING", words(number));
    case 1:
        return offer(desk, "text/html", "<b>" + words(number) + "</b>");
    case 2:
        return offer(desk, "text/rtf", "{\\rtf1 " + words(number) + "}");
    case 3:
        return offer(desk, "image/png", picture(number, {640, 400}));
    case 4:
        return offer(desk, "text/uri-list", "file:///tmp/paper%20" + QByteArray::number(number) + "\r\n");
    case 5:
        // Nothing that the popup finds: no editor takes so much in at once.
        return offer(desk, "UTF8_STRING", QByteArray::number(number) + largeText);
    case 6:
        return copyFromAnEditor(desk, desk.editor, number);
    case 7:
        return copyFromAnEditor(desk, desk.notes, number);
    case 8:
        return offer(desk, "image/png", picture(number, {1280, 800}));
    default:
        return desk.copy(QStringLiteral(CLIENTS "/odd_owner"), {QStringLiteral("isSecret")});
    }
}

constexpr int secret = 9;

}  // namespace

bool copySomething(SoakDesk &desk) {
    static int number = 0;
    const quint64 before = desk.historyVersion();
    copyNumber(desk, ++number);
    if (number % 10 == secret)
        return !waitUntil([&] { return desk.historyVersion() != before; }, 1200);
    return waitUntil([&] { return desk.historyVersion() != before; }, 4000);
}

bool copyInQuickSuccession(SoakDesk &desk) {
    static int number = 1'000'000;
    const quint64 before = desk.historyVersion();
    for (int copy = 0; copy < 12; ++copy)
        offer(desk, "UTF8_STRING", words(++number));
    return waitUntil([&] { return desk.historyVersion() != before; }, 4000);
}

}  // namespace pimloft::test
