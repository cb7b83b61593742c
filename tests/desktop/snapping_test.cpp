// SPDX-License-Identifier: MIT
#include "desktop/support/desktop_test.h"

#include <array>
#include <tuple>

namespace pimloft::test {
namespace {

constexpr QRect screen(0, 0, 1600, 1000);

struct Zone {
    const char *name;
    QPoint pointer;
    double x, y, width, height;
};

constexpr std::array<Zone, 7> zones = {{
    {"left", {2, 500}, 0, 0, 0.5, 1},
    {"right", {1597, 480}, 0.5, 0, 0.5, 1},
    {"top", {800, 1}, 0, 0, 1, 1},
    {"topLeft", {3, 4}, 0, 0, 0.5, 0.5},
    {"topRight", {1596, 3}, 0.5, 0, 0.5, 0.5},
    {"bottomLeft", {4, 996}, 0, 0.5, 0.5, 0.5},
    {"bottomRight", {1597, 995}, 0.5, 0.5, 0.5, 0.5},
}};

QRect frameOf(const Zone &zone, const QRect &area = screen) {
    return part(area, zone.x, zone.y, zone.width, zone.height);
}

class Dragging : public DesktopTest,
                 public testing::WithParamInterface<std::tuple<const char *, const char *>> {
protected:
    void SetUp() override { openDesktop(QString::fromLatin1(std::get<0>(GetParam()))); }
    Client client() const {
        const std::string name = std::get<1>(GetParam());
        return name == "xterm" ? Client::xterm : name == "gtk" ? Client::gtk : Client::qt;
    }
};

TEST_P(Dragging, fillsEachZoneToThePixelAfterShowingIt) {
    startPimloft();
    const xcb_window_t window = openWindow(client(), QStringLiteral("Dragged"));
    for (const Zone &zone : zones) {
        SCOPED_TRACE(zone.name);
        dragTo(window, zone.pointer);
        EXPECT_TRUE(waitUntil([&] { return overlayIs(frameOf(zone)); })) << "the overlay is not there";
        drop();
        expectFrame(window, frameOf(zone));
        EXPECT_TRUE(waitUntil([&] { return noOverlay(); })) << "the overlay stays";
    }
}

INSTANTIATE_TEST_SUITE_P(Managers, Dragging,
                         testing::Combine(everyManager, testing::Values("xterm", "gtk", "qt")),
                         [](const auto &info) {
                             return std::string(std::get<0>(info.param)) + "_" + std::get<1>(info.param);
                         });

class Shortcuts : public EveryManagerTest {};
INSTANTIATE_TEST_SUITE_P(Managers, Shortcuts, everyManager, managerName);

TEST_P(Shortcuts, fillTheHalvesAndTheWhole) {
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
    press(KEY_LEFT);
    expectFrame(window, part(screen, 0, 0, 0.5, 1));
    press(KEY_RIGHT);
    expectFrame(window, part(screen, 0.5, 0, 0.5, 1));
    press(KEY_UP);
    expectFrame(window, screen);
}

TEST_P(Shortcuts, fillTheFirstSlotOfEachLayout) {
    startPimloft();
    const xcb_window_t window = openWindow(Client::gtk, QStringLiteral("Placed"));
    const struct {
        int key;
        QRect frame;
    } layouts[] = {
        {KEY_1, part(screen, 0, 0, 0.5, 1)}, {KEY_2, part(screen, 0, 0, 0.7, 1)},
        {KEY_3, part(screen, 0, 0, 0.3, 1)}, {KEY_4, part(screen, 0, 0, 1.0 / 3, 1)},
        {KEY_5, part(screen, 0, 0, 0.5, 1)}, {KEY_6, part(screen, 0, 0, 0.5, 0.5)},
    };
    for (const auto &layout : layouts) {
        SCOPED_TRACE(layout.key - KEY_1 + 1);
        press(layout.key);
        expectFrame(window, layout.frame);
    }
}

TEST_P(Shortcuts, restoreMirroredAtThePrimaryDisplaysMiddleAndOnlyOnce) {
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Restored"), {300, 150, 640, 400});
    press(KEY_LEFT);
    expectFrame(window, part(screen, 0, 0, 0.5, 1));
    press(KEY_DOWN);
    expectFrame(window, {300, 1000 - 150 - 400, 640, 400});

    dragTo(window, {500, 200});
    drop();
    letPimloftCatchUp();
    const QRect dropped = desktop().visibleFrame(window);
    ASSERT_EQ(dropped.size(), QSize(640, 400));
    press(KEY_DOWN);  // remembers nothing any more
    press(KEY_RIGHT);
    expectFrame(window, part(screen, 0.5, 0, 0.5, 1));
    press(KEY_DOWN);
    expectFrame(window, {dropped.x(), 1000 - dropped.y() - 400, 640, 400});
}

TEST_P(Shortcuts, takeAWindowOutOfTheMaximisedState) {
    startPimloft();
    for (const Client client : {Client::qt, Client::gtk}) {
        const xcb_window_t window = openWindow(client, QStringLiteral("Maximised %1").arg(int(client)));
        desktop().setState(window, "MAXIMIZED", true);
        ASSERT_TRUE(waitUntil([&] { return desktop().visibleFrame(window) == screen; }));
        press(KEY_LEFT);
        expectFrame(window, part(screen, 0, 0, 0.5, 1));
        EXPECT_FALSE(desktop().states(window).contains(QStringLiteral("MAXIMIZED_VERT")));
    }
}

TEST_P(Shortcuts, takeAWindowOutOfTheFullscreenState) {
    startPimloft();
    for (const Client client : {Client::qt, Client::gtk}) {
        const xcb_window_t window = openWindow(client, QStringLiteral("Fullscreen %1").arg(int(client)));
        desktop().setState(window, "FULLSCREEN", true);
        ASSERT_TRUE(waitUntil([&] { return desktop().visibleFrame(window) == screen; }));
        press(KEY_6);
        expectFrame(window, part(screen, 0, 0, 0.5, 0.5));
        EXPECT_FALSE(desktop().states(window).contains(QStringLiteral("FULLSCREEN")));
    }
}

TEST_P(Shortcuts, leaveAWindowItsSmallestSizeAtTheRightPlace) {
    startPimloft();
    const xcb_window_t window =
        openWindow(Client::qt, QStringLiteral("Large"), {200, 100, 1000, 800}, {QStringLiteral("large")});
    press(KEY_6);
    EXPECT_TRUE(waitUntil([&] { return desktop().visibleFrame(window).topLeft() == QPoint(0, 0); }));
    EXPECT_TRUE(waitUntil([&] { return desktop().visibleFrame(window).width() < 1000; }));
    EXPECT_GE(desktop().visibleFrame(window).width(), 900);
}

class Snapping : public EveryManagerTest {};
INSTANTIATE_TEST_SUITE_P(Managers, Snapping, everyManager, managerName);

TEST_P(Snapping, leavesAWindowThatIsDroppedAwayFromTheEdges) {
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    dragTo(window, {700, 500});
    drop();
    letPimloftCatchUp();
    EXPECT_EQ(desktop().visibleFrame(window).size(), QSize(640, 400));
    EXPECT_TRUE(noOverlay());
}

TEST_P(Snapping, usesTheAreaThatPanelsLeave) {
    desktop().openDock(XDesktop::Edge::top, 40, 0, 1600);
    desktop().openDock(XDesktop::Edge::left, 60, 0, 1000);
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
    const QRect area(60, 40, 1540, 960);
    press(KEY_UP);
    expectFrame(window, area);
    press(KEY_RIGHT);
    expectFrame(window, part(area, 0.5, 0, 0.5, 1));
    desktop().openDock(XDesktop::Edge::bottom, 30, 0, 1600);
    EXPECT_TRUE(waitUntil([&] {
        press(KEY_UP);
        return desktop().visibleFrame(window) == QRect(60, 40, 1540, 930);
    })) << "a panel that comes later is not seen";
}

TEST_P(Snapping, followsTheScaleOfThePointsButPlacesPixels) {
    startPimloft({{QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2")}});
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    // The edge band is 10 points, so 20 pixels.
    dragTo(window, {18, 500});
    EXPECT_TRUE(waitUntil([&] { return overlayIs(part(screen, 0, 0, 0.5, 1)); }));
    picture(QStringLiteral("overlay-scale-2-%1").arg(QLatin1String(GetParam())));
    drop();
    expectFrame(window, part(screen, 0, 0, 0.5, 1));
    press(KEY_4);
    expectFrame(window, part(screen, 0, 0, 1.0 / 3, 1));
}

TEST_P(Snapping, passesOverAWindowThatClosesInMidDrag) {
    startPimloft();
    const xcb_window_t other = openWindow(Client::qt, QStringLiteral("Other"));
    const xcb_window_t window = openWindow(Client::gtk, QStringLiteral("Closing"));
    dragTo(window, {2, 500});
    ASSERT_TRUE(waitUntil([&] { return overlayIs(part(screen, 0, 0, 0.5, 1)); }));
    closeLastWindow();
    drop();
    EXPECT_TRUE(waitUntil([&] { return noOverlay(); }));
    letPimloftCatchUp();
    desktop().activate(other);
    ASSERT_TRUE(waitUntil([&] { return desktop().activeWindow() == other; }));
    press(KEY_RIGHT);
    expectFrame(other, part(screen, 0.5, 0, 0.5, 1));
}

TEST_P(Snapping, goesOnWhenTheWindowManagerRestarts) {
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"));
    session().stopWindowManager();
    press(KEY_LEFT);
    letPimloftCatchUp();
    session().startWindowManager(QString::fromLatin1(GetParam()));
    desktop().activate(window);
    ASSERT_TRUE(waitUntil([&] { return desktop().activeWindow() == window; }));
    press(KEY_RIGHT);
    expectFrame(window, part(screen, 0.5, 0, 0.5, 1));
}

class LateManager : public DesktopTest {};

TEST_F(LateManager, isServedWhenItComes) {
    openDesktop({});
    startPimloft();
    session().startWindowManager(QStringLiteral("openbox"));
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"));
    dragTo(window, {1598, 500});
    EXPECT_TRUE(waitUntil([&] { return overlayIs(part(screen, 0.5, 0, 0.5, 1)); }));
    drop();
    expectFrame(window, part(screen, 0.5, 0, 0.5, 1));
}

}  // namespace
}  // namespace pimloft::test
