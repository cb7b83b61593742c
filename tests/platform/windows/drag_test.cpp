// SPDX-License-Identifier: MIT
#include "platform/windows/windows_desk.h"

#include "support/physical_input.h"

#include <QCoreApplication>

namespace pimloft::test {
namespace {

/// A window is placed at the moment at which its title bar is let go, when the window manager has its own
/// move to finish.
class Drag : public WindowsDesk {
protected:
    void tileByWindowManager() {
        // xfwm4 tiles at the edges only where it does not carry windows to the next workspace there.
        const QString channel = QStringLiteral("xfwm4");
        for (const auto &[name, value] :
             {std::pair("wrap_windows", "false"), std::pair("tile_on_move", "true")})
            currentSession().run(QStringLiteral("xfconf-query"),
                                 {QStringLiteral("-c"), channel, QStringLiteral("-p"),
                                  QStringLiteral("/general/%1").arg(QLatin1String(name)),
                                  QStringLiteral("-n"), QStringLiteral("-t"), QStringLiteral("bool"),
                                  QStringLiteral("-s"), QLatin1String(value)});
    }

    /// Drags the window's title bar to `end`, holding it there.
    void dragTo(QPoint end) {
        const QPoint title = client.visibleFrame(window).topLeft() + QPoint(150, 8);
        hands.moveTo(title);
        hands.leftDown();
        hands.glideTo(title + QPoint(60, 60), 20);
        hands.glideTo(end, 40);
    }

    void expectOursAfterRelease(QPoint end) {
        SCOPED_TRACE(text(QRect(end, QSize())));
        const QRect target(100, 50, 700, 640);
        const auto reference = openFocused();
        dragTo(end);
        hands.leftUp();
        windows.place(reference, target);
        expectFrame(target, 350);
        client.close(window);
        ASSERT_TRUE(waitUntil([&] { return !client.isManaged(window); }));
    }

    PhysicalInput hands;
};

TEST_F(Drag, theFrameIsOursThoughTheWindowManagerFinishesItsMove) {
    for (const QPoint end :
         {QPoint(0, 500), QPoint(1599, 500), QPoint(800, 0), QPoint(0, 0), QPoint(1599, 999)})
        expectOursAfterRelease(end);
}

TEST_F(Drag, theFrameIsOursThoughTheWindowManagerTilesAtTheEdge) {
    if (isOpenbox())
        GTEST_SKIP() << "openbox does not tile";
    tileByWindowManager();
    // The setting has arrived once a window that is dragged to the edge fills its half.
    ASSERT_TRUE(waitUntil([&] {
        openFocused();
        dragTo({0, 500});
        const bool isTiled = waitUntil([&] { return client.visibleFrame(window).height() > 900; }, 200);
        hands.leftUp();
        client.close(window);
        return isTiled && waitUntil([&] { return !client.isManaged(window); });
    }));
    for (const QPoint end :
         {QPoint(0, 500), QPoint(1599, 500), QPoint(800, 0), QPoint(0, 0), QPoint(1599, 999)})
        expectOursAfterRelease(end);
}

TEST_F(Drag, aWindowThatIsMovedByHandRightAfterwardsIsNotTakenBack) {
    const auto reference = openFocused();
    const QRect target(300, 200, 600, 400);
    windows.place(reference, target);
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window) == target; }));
    dragTo(target.topLeft() + QPoint(150, 8) + QPoint(200, 100));
    const QRect held = client.visibleFrame(window);
    EXPECT_NE(text(held), text(target));
    // Held still for longer than the placement looks on.
    EXPECT_FALSE(waitUntil([&] { return client.visibleFrame(window) == target; }, 400));
    hands.leftUp();
    EXPECT_FALSE(waitUntil([&] { return client.visibleFrame(window) == target; }, 300));
}

}  // namespace
}  // namespace pimloft::test
