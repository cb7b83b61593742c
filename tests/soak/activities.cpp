// SPDX-License-Identifier: MIT
#include "soak/activities.h"

#include "soak/copies.h"

#include <QDir>

#include <array>

namespace pimloft::test {

namespace {

constexpr QPoint middle{800, 500};

bool dragToAnEdge(SoakDesk &desk) {
    static constexpr std::array<QPoint, 8> edges{
        {{2, 500}, {1597, 500}, {800, 1}, {2, 2}, {1597, 2}, {2, 997}, {1597, 997}, {800, 500}}};
    const xcb_window_t window = desk.anyWindow();
    if (!desk.raise(window))
        return false;
    // The title bar is to be within reach of a straight drag.
    desk.desktop.place(window, {300 + desk.random.bounded(300), 200 + desk.random.bounded(200), 640, 400});
    const QPoint edge = edges[desk.random.bounded(quint32(edges.size()))];
    const auto isPlaced = [&] { return desk.desktop.visibleFrame(window).width() < 720; };
    waitUntil(isPlaced, 1000);
    desk.hands.moveTo(desk.desktop.titleBar(window));
    desk.hands.leftDown();
    desk.hands.glideTo(middle, 30);
    desk.hands.glideTo(edge, 60);
    const bool isShown = waitUntil([&] { return edge == middle || desk.hasPanel(); }, 1500);
    desk.hands.leftUp();
    return waitUntil([&] { return desk.desktop.isPointerFree() && !desk.hasPanel(); }) && isShown;
}

bool placeByShortcut(SoakDesk &desk) {
    const xcb_window_t window = desk.anyWindow();
    if (!desk.raise(window))
        return false;
    const auto press = [&](int key) { desk.hands.chord({KEY_LEFTCTRL, KEY_LEFTMETA, key}); };
    for (const int key : {KEY_UP, KEY_1, KEY_2, KEY_3, KEY_4, KEY_5, KEY_6, KEY_DOWN, KEY_LEFT})
        press(key);
    const auto half = [&](int x) {
        const QRect frame = desk.desktop.visibleFrame(window);
        return frame.x() == x && frame.width() > 700;
    };
    if (!waitUntil([&] { return half(0); }, 3000))
        return false;
    press(KEY_RIGHT);
    return waitUntil([&] { return half(800); }, 3000);
}

bool useThePopup(SoakDesk &desk) {
    if (!desk.raise(desk.editor))
        return false;
    desk.hands.moveTo(middle);
    const bool isOpen = waitUntil([&] {
        desk.hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
        return waitUntil([&] { return desk.hasPanel(); }, 1500);
    });
    if (!isOpen)
        return false;
    desk.settle();
    desk.hands.type("entry");
    desk.hands.tap(KEY_BACKSPACE);
    // Nobody clicks on a row that is still being looked for.
    desk.settle();
    // The first row: see the desktop tests' clipboard desk.
    if (desk.random.bounded(3) > 0)
        desk.hands.doubleClick(middle + QPoint(-60, -132));
    else
        desk.hands.tap(KEY_ESC);
    return desk.waitForPanel(false);
}

bool typeWithRules(SoakDesk &desk) {
    const xcb_window_t window = desk.anyWindow();
    if (!desk.raise(window))
        return false;
    for (int line = 0; line < 5; ++line) {
        desk.hands.type("The quick brown fox jumps over the lazy dog, 1234567890.");
        for (const int key : {KEY_HOME, KEY_END, KEY_F5, KEY_ENTER})
            desk.hands.tap(key);
        desk.hands.chord({KEY_LEFTSHIFT, KEY_HOME});
    }
    if (window != desk.terminal) {
        desk.hands.chord({KEY_LEFTCTRL, KEY_A});
        desk.hands.tap(KEY_DELETE);
    }
    return desk.awaitKeys();
}

bool moveFiles(SoakDesk &desk) {
    const auto names = [&](const char *folder) {
        return QDir(desk.folder(QLatin1String(folder))).entryList(QDir::Files);
    };
    const bool isRightwards = !names("left").isEmpty();
    const char *target = isRightwards ? "right" : "left";
    if (!desk.raise(isRightwards ? desk.left : desk.right))
        return false;
    desk.hands.chord({KEY_LEFTCTRL, KEY_A});
    const quint64 before = desk.historyVersion();
    desk.hands.chord({KEY_LEFTMETA, KEY_X});
    // What was cut has been copied, and so recorded.
    waitUntil([&] { return desk.historyVersion() != before; }, 1500);
    if (!desk.raise(isRightwards ? desk.right : desk.left))
        return false;
    desk.hands.chord({KEY_LEFTMETA, KEY_V});
    return waitUntil([&] { return names(target).size() == 5; }, 3000);
}

bool changeTheSound(SoakDesk &desk) {
    const QString wanted = desk.random.bounded(2) ? QStringLiteral("speakers") : QStringLiteral("headphones");
    for (int step = 0; step < 5; ++step)
        desk.sound.pactl({QStringLiteral("set-sink-volume"), wanted,
                          QStringLiteral("%1%").arg(desk.random.bounded(10, 100))});
    desk.sound.pactl({QStringLiteral("set-sink-mute"), wanted, QStringLiteral("toggle")});
    desk.sound.pactl({QStringLiteral("set-default-sink"), wanted});
    const QString module = desk.sound.addSink(QStringLiteral("headset"), QStringLiteral("Headset"));
    desk.sound.pactl({QStringLiteral("set-default-sink"), QStringLiteral("headset")});
    desk.sound.removeModule(module);
    desk.sound.pactl({QStringLiteral("set-default-sink"), wanted});
    return desk.sound.defaultSink() == wanted;
}

bool useTheMixer(SoakDesk &desk) {
    desk.sound.pactl({QStringLiteral("set-default-sink"), QStringLiteral("speakers")});
    desk.sound.pactl({QStringLiteral("set-sink-volume"), QStringLiteral("speakers"), QStringLiteral("50%")});
    if (!desk.openPanel())
        return false;
    // Backwards from the end to the chevron; then two devices, the mute, the slider.
    for (int stop = 0; stop < 2; ++stop)
        desk.hands.chord({KEY_LEFTSHIFT, KEY_TAB});
    desk.hands.tap(KEY_SPACE);
    desk.say("open-popover");
    for (int stop = 0; stop < 4; ++stop)
        desk.hands.tap(KEY_TAB);
    for (int step = 0; step < 3; ++step)
        desk.hands.tap(KEY_RIGHT);
    const bool isTurned = waitUntil(
        [&] { return desk.sound.volumeOf(QStringLiteral("speakers")) != QLatin1String("50 50"); }, 2000);
    desk.hands.tap(KEY_ESC);
    return desk.waitForPanel(false) && isTurned;
}

bool switchAFeature(SoakDesk &desk) {
    static const std::array ids{QStringLiteral("windowsnap"), QStringLiteral("clipboardplus"),
                                QStringLiteral("finderfix"), QStringLiteral("keymapper"),
                                QStringLiteral("quickvolume")};
    const int row = desk.random.bounded(int(ids.size()));
    if (!desk.openPanel())
        return false;
    // The first stop is the button in the header.
    for (int stop = 0; stop <= row + 1; ++stop)
        desk.hands.tap(KEY_TAB);
    bool areStored = true;
    for (const bool on : {false, true}) {
        desk.hands.tap(KEY_SPACE);
        areStored =
            waitUntil([&] { return desk.isFeatureOn(ids[std::size_t(row)]) == on; }, 3000) && areStored;
    }
    desk.hands.tap(KEY_ESC);
    return desk.waitForPanel(false) && areStored;
}

bool lookThroughTheSettings(SoakDesk &desk) {
    const auto windows = [&] { return desk.desktop.windowsOf(desk.windowClass); };
    desk.say("open-settings");
    if (!waitUntil([&] { return !windows().empty(); }) || !desk.raise(windows().front()))
        return false;
    for (int tab = 0; tab < 7; ++tab) {
        desk.hands.chord({KEY_LEFTCTRL, KEY_TAB});
        desk.hands.tap(KEY_TAB);
    }
    desk.desktop.close(windows().front());
    return waitUntil([&] { return windows().empty(); });
}

bool openThePanel(SoakDesk &desk) {
    for (int time = 0; time < 3; ++time) {
        if (!desk.openPanel())
            return false;
        desk.hands.tap(KEY_ESC);
        if (!desk.waitForPanel(false))
            return false;
    }
    return true;
}

}  // namespace

const std::vector<Activity> &activities() {
    static const std::vector<Activity> all{
        {"drags to an edge", 4, dragToAnEdge},
        {"placing by shortcuts", 2, placeByShortcut},
        {"copies", 8, copySomething},
        {"copies in quick succession", 1, copyInQuickSuccession},
        {"the popup", 4, useThePopup},
        {"typing with rules", 3, typeWithRules},
        {"moves of files", 2, moveFiles},
        {"changes of sound", 1, changeTheSound},
        {"the mixer", 1, useTheMixer},
        {"switching a feature", 2, switchAFeature},
        {"the settings", 1, lookThroughTheSettings},
        {"the panel", 1, openThePanel},
    };
    return all;
}

}  // namespace pimloft::test
