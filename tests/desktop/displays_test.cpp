// SPDX-License-Identifier: MIT
// Two displays on one X screen, as a laptop with a monitor has them.
#include "desktop/support/desktop_test.h"

namespace pimloft::test {
namespace {

constexpr QRect left(0, 0, 800, 1000);
constexpr QRect right(800, 0, 800, 1000);

class TwoDisplays : public DesktopTest {
protected:
    void open(const QString &leftName, const QString &rightName) {
        openDesktop(QStringLiteral("openbox"));
        addMonitor(leftName, QStringLiteral("800/200x1000/250+0+0"), QStringLiteral("screen"));
        addMonitor(rightName, QStringLiteral("800/200x1000/250+800+0"), QStringLiteral("none"));
    }
    void addMonitor(const QString &name, const QString &geometry, const QString &output) {
        session().run(QStringLiteral("xrandr"), {QStringLiteral("--setmonitor"), name, geometry, output});
    }
    void removeMonitor(const QString &name) {
        session().run(QStringLiteral("xrandr"), {QStringLiteral("--delmonitor"), name});
    }
};

TEST_F(TwoDisplays, snapOnTheOneUnderThePointer) {
    open(QStringLiteral("*LEFT"), QStringLiteral("RIGHT"));
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"), {100, 200, 500, 400});
    dragTo(window, {1598, 500});
    EXPECT_TRUE(waitUntil([&] { return overlayIs(part(right, 0.5, 0, 0.5, 1)); }));
    drop();
    expectFrame(window, part(right, 0.5, 0, 0.5, 1));
    dragTo(window, {400, 1});
    drop();
    expectFrame(window, left);
}

TEST_F(TwoDisplays, offerNoZoneOnTheEdgeTheyShareNorInItsCorners) {
    open(QStringLiteral("*LEFT"), QStringLiteral("RIGHT"));
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"), {100, 200, 500, 400});
    for (const QPoint &shared : {QPoint(798, 500), QPoint(798, 1), QPoint(801, 500), QPoint(802, 998)}) {
        SCOPED_TRACE(testing::Message() << shared.x() << ' ' << shared.y());
        dragTo(window, shared);
        letPimloftCatchUp();
        EXPECT_TRUE(noOverlay());
        drop();
        letPimloftCatchUp();
        EXPECT_EQ(desktop().visibleFrame(window).size(), QSize(500, 400));
    }
}

TEST_F(TwoDisplays, countFromThePrimaryAlsoWhenTheOtherIsLeftOfIt) {
    open(QStringLiteral("LEFT"), QStringLiteral("*RIGHT"));
    startPimloft();
    const xcb_window_t window = openWindow(Client::gtk, QStringLiteral("Dragged"), {900, 200, 500, 400});
    dragTo(window, {2, 500});
    EXPECT_TRUE(waitUntil([&] { return overlayIs(part(left, 0, 0, 0.5, 1)); }));
    drop();
    expectFrame(window, part(left, 0, 0, 0.5, 1));
    press(KEY_RIGHT);
    expectFrame(window, part(left, 0.5, 0, 0.5, 1));
}

TEST_F(TwoDisplays, keepTheirOwnPanels) {
    open(QStringLiteral("*LEFT"), QStringLiteral("RIGHT"));
    desktop().openDock(XDesktop::Edge::top, 50, 800, 1600);
    desktop().openDock(XDesktop::Edge::bottom, 70, 0, 800);
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"), {100, 200, 500, 400});
    press(KEY_UP);
    expectFrame(window, {0, 0, 800, 930});
    desktop().place(window, {900, 200, 500, 400});
    ASSERT_TRUE(waitUntil([&] { return desktop().visibleFrame(window).x() == 900; }));
    press(KEY_UP);
    expectFrame(window, {800, 50, 800, 950});
}

TEST_F(TwoDisplays, mayBecomeOneInMidDrag) {
    open(QStringLiteral("*LEFT"), QStringLiteral("RIGHT"));
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Dragged"), {100, 200, 500, 400});
    dragTo(window, {1598, 500});
    ASSERT_TRUE(waitUntil([&] { return overlayIs(part(right, 0.5, 0, 0.5, 1)); }));
    removeMonitor(QStringLiteral("RIGHT"));
    drop();
    EXPECT_TRUE(waitUntil([&] { return noOverlay(); }));
    letPimloftCatchUp();
    desktop().place(window, {100, 200, 500, 400});
    ASSERT_TRUE(waitUntil([&] { return desktop().visibleFrame(window).topLeft() == QPoint(100, 200); }));
    // What was the shared edge is an edge like any other now.
    dragTo(window, {798, 500});
    EXPECT_TRUE(waitUntil([&] { return overlayIs(part(left, 0.5, 0, 0.5, 1)); }));
    drop();
    expectFrame(window, part(left, 0.5, 0, 0.5, 1));
}

TEST_F(TwoDisplays, mayComeWhileItRuns) {
    openDesktop(QStringLiteral("openbox"));
    startPimloft();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Placed"), {900, 200, 500, 400});
    addMonitor(QStringLiteral("*LEFT"), QStringLiteral("800/200x1000/250+0+0"), QStringLiteral("screen"));
    addMonitor(QStringLiteral("RIGHT"), QStringLiteral("800/200x1000/250+800+0"), QStringLiteral("none"));
    letPimloftCatchUp();
    press(KEY_LEFT);
    expectFrame(window, part(right, 0, 0, 0.5, 1));
}

}  // namespace
}  // namespace pimloft::test
