// SPDX-License-Identifier: MIT
#include "platform/windows/windows_desk.h"

#include <QWidget>

namespace pimloft::test {
namespace {

/// Halves, a quarter, and something odd.
constexpr QRect targets[] = {
    {0, 0, 800, 1000}, {800, 0, 800, 1000}, {800, 500, 800, 500}, {123, 77, 641, 433}};

struct Start {
    const char *name;
    std::initializer_list<const char *> states;
};
constexpr Start starts[] = {
    {"normal", {}},
    {"maximised", {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"}},
    {"maximised upright", {"_NET_WM_STATE_MAXIMIZED_VERT"}},
    {"fullscreen", {"_NET_WM_STATE_FULLSCREEN"}},
    {"shaded", {"_NET_WM_STATE_SHADED"}},
};

class Placement : public WindowsDesk {
protected:
    void enter(const Start &start) {
        if (start.states.size() == 0)
            return;
        client.changeState(window, X11Client::Change::add, start.states);
        ASSERT_TRUE(waitUntil([&] { return client.hasState(window, *start.states.begin()); })) << start.name;
    }

    /// Places the window from every state at every target, and compares what the user sees.
    void expectExactPlacement(const WindowReference &reference) {
        for (const Start &start : starts) {
            // Only a window manager's own title bar can stay behind.
            if (start.name == std::string("shaded") && client.clientRect(window) == frameAround())
                continue;
            for (const QRect &target : targets) {
                SCOPED_TRACE(std::string(start.name) + " to " + text(target));
                enter(start);
                windows.place(reference, target);
                // Longer than the placement watches, and than it takes to settle: it would undo the next
                // state.
                expectFrame(target, 400);
                for (const char *state : start.states)
                    EXPECT_FALSE(client.hasState(window, state)) << state;
            }
        }
    }

    QRect frameAround() { return client.outermostFrame(window); }

    WindowReference startProgram(const QString &program, const QStringList &arguments, const char *title) {
        process_ = currentSession().start(program, arguments);
        EXPECT_TRUE(waitUntil([&] { return client.find(title) != XCB_NONE; })) << title;
        window = client.find(title);
        return focus(window);
    }
    WindowReference startXterm() {
        return startProgram(QStringLiteral("xterm"),
                            {QStringLiteral("-T"), QStringLiteral("placed-xterm"), QStringLiteral("-fa"),
                             QStringLiteral("monospace")},
                            "placed-xterm");
    }

private:
    std::unique_ptr<QProcess> process_;
};

TEST_F(Placement, ofAPlainWindowIsExact) {
    expectExactPlacement(openFocused());
}

TEST_F(Placement, ofAWindowWithStaticGravityIsExact) {
    expectExactPlacement(openFocused({.staticGravity = true}));
}

TEST_F(Placement, ofAWindowThatDrawsItsShadowIsExact) {
    expectExactPlacement(openFocused({.shadow = QMargins(26, 23, 26, 29)}));
}

TEST_F(Placement, ofAQtWindowIsExact) {
    QWidget widget;
    widget.resize(300, 200);
    widget.show();
    window = xcb_window_t(widget.winId());
    expectExactPlacement(focus(window));
}

TEST_F(Placement, ofAGtkWindowIsExact) {
    expectExactPlacement(startProgram(QStringLiteral(PLACED_GTK_WINDOW), {}, "placed-gtk"));
}

TEST_F(Placement, ofATerminalStandsExactlyAndIsAsLargeAsItsCharactersAllow) {
    const auto reference = startXterm();
    for (const QRect &target : targets) {
        windows.place(reference, target);
        EXPECT_TRUE(waitUntil([&] {
            const QRect now = client.visibleFrame(window);
            return windows.position(reference) == now.topLeft() && windows.size(reference) == now.size();
        }));
        const QRect frame = client.visibleFrame(window);
        EXPECT_EQ(frame.topLeft(), target.topLeft()) << text(frame);
        if (!isOpenbox()) {  // which keeps the increments
            EXPECT_EQ(text(frame), text(target));
            continue;
        }
        EXPECT_LE(frame.width(), target.width());
        EXPECT_GT(frame.width(), target.width() - 20);
        EXPECT_LE(frame.height(), target.height());
        EXPECT_GT(frame.height(), target.height() - 40);
    }
}

TEST_F(Placement, ofAWindowBelowItsMinimumKeepsTheMinimumAtThePosition) {
    const auto reference = openFocused({.minimum = QSize(500, 400)});
    windows.place(reference, {800, 0, 300, 200});
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window).topLeft() == QPoint(800, 0); }));
    EXPECT_EQ(client.clientRect(window).size(), QSize(500, 400));
    EXPECT_TRUE(waitUntil([&] { return windows.size(reference) == client.visibleFrame(window).size(); }))
        << "the answer becomes what the window really is";
}

TEST_F(Placement, leavesNothingThatDriftsWhenTheUserMaximisesAndRestores) {
    for (const bool isStatic : {false, true}) {
        const auto reference = openFocused({.staticGravity = isStatic});
        windows.place(reference, {200, 150, 600, 400});
        expectFrame({200, 150, 600, 400}, 60);
        const auto maximised = {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"};
        client.changeState(window, X11Client::Change::add, maximised);
        ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window).width() == 1600; }));
        client.changeState(window, X11Client::Change::remove, maximised);
        expectFrame({200, 150, 600, 400}, 60);
        client.close(window);
    }
}

TEST_F(Placement, readsAnswerTheFrameThatWasAskedForUntilTheWindowHasSettled) {
    const auto reference = openFocused();
    windows.place(reference, {10.5, 20.25, 640, 480});
    EXPECT_EQ(windows.position(reference), QPointF(10.5, 20.25));
    EXPECT_EQ(windows.size(reference), QSizeF(640, 480));
    EXPECT_TRUE(waitUntil([&] { return windows.position(reference) == QPointF(11, 20); }));
}

TEST_F(Placement, theNewestFrameWins) {
    const auto reference = openFocused();
    enter(starts[1]);
    windows.place(reference, targets[0]);
    windows.place(reference, targets[1]);
    EXPECT_EQ(windows.position(reference), QPointF(targets[1].topLeft()));
    expectFrame(targets[1]);
    windows.place(reference, targets[0]);
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window) == targets[0]; }));
    windows.place(reference, targets[3]);
    expectFrame(targets[3]);
}

TEST_F(Placement, windowsArePlacedSideBySide) {
    const auto first = openFocused();
    const xcb_window_t firstWindow = window;
    const auto second = openFocused();
    windows.place(first, targets[0]);
    windows.place(second, targets[1]);
    expectFrame(targets[1]);
    EXPECT_EQ(text(client.visibleFrame(firstWindow)), text(targets[0]));
}

}  // namespace
}  // namespace pimloft::test
