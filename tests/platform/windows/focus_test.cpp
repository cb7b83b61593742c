// SPDX-License-Identifier: MIT
#include "platform/windows/windows_desk.h"

#include "platform/x11/x11_active_window.h"
#include "platform/x11/x11_window_info.h"

#include <QSignalSpy>

#include <unistd.h>

namespace pimloft::test {
namespace {

using Focus = WindowsDesk;

std::unique_ptr<QProcess> startXterm() {
    return currentSession().start(QStringLiteral("xterm"), {QStringLiteral("-T"), QStringLiteral("placed")});
}

TEST_F(Focus, anOrdinarySessionIsTrustedAndAWaylandSessionIsNot) {
    EXPECT_TRUE(windows.isTrusted());
    X11Windows wayland(session, displays, QStringLiteral("wayland"));
    EXPECT_FALSE(wayland.isTrusted());
}

TEST_F(Focus, untrustedReadsAnswerNothingAndNothingIsPlaced) {
    const auto reference = openFocused();
    X11Windows wayland(session, displays, QStringLiteral("wayland"));
    EXPECT_FALSE(wayland.focusedWindow());
    EXPECT_FALSE(wayland.position(reference));
    EXPECT_FALSE(wayland.size(reference));
    EXPECT_FALSE(wayland.processId(reference));
    const QRect before = client.visibleFrame(window);
    wayland.place(reference, {0, 0, 500, 500});
    session.roundTrip();
    EXPECT_FALSE(waitUntil([&] { return client.visibleFrame(window) != before; }, 100));
}

TEST_F(Focus, isAnotherProgramsWindowWithItsProcessAndVisibleFrame) {
    const auto xterm = startXterm();
    ASSERT_TRUE(waitUntil([&] { return client.find("placed") != XCB_NONE; }));
    window = client.find("placed");
    const auto reference = focus(window);
    EXPECT_EQ(windows.processId(reference), ProcessId(xterm->processId()));
    const QRect frame = client.visibleFrame(window);
    EXPECT_EQ(windows.position(reference), QPointF(frame.topLeft()));
    EXPECT_EQ(windows.size(reference), QSizeF(frame.size()));
}

TEST_F(Focus, isThisProgramsOwnWindowAsAnyOther) {
    const auto reference = openFocused();
    EXPECT_EQ(windows.processId(reference), ProcessId(getpid()));
}

TEST_F(Focus, isTheSameReferenceForTheSameWindow) {
    const auto reference = openFocused();
    EXPECT_EQ(windows.focusedWindow(), reference);
}

TEST_F(Focus, isNothingForADockOrTheDesktop) {
    for (const char *type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"}) {
        const xcb_window_t bar = client.open({.type = type});
        ASSERT_TRUE(waitUntil([&] { return client.isManaged(bar); }));
        client.activate(bar);
        waitUntil([&] { return client.isActive(bar); }, 500);
        EXPECT_FALSE(windows.focusedWindow()) << type;
        client.close(bar);
        ASSERT_TRUE(waitUntil([&] { return !client.isManaged(bar); }));
    }
}

TEST_F(Focus, isNothingOnceTheWindowIsHidden) {
    const auto reference = openFocused();
    client.iconify(window);
    EXPECT_TRUE(waitUntil([&] { return !windows.focusedWindow(); }));
}

TEST_F(Focus, aShadedWindowStillHasTheKeyboard) {
    const auto reference = openFocused();
    client.changeState(window, X11Client::Change::add, {"_NET_WM_STATE_SHADED"});
    ASSERT_TRUE(waitUntil([&] { return client.hasState(window, "_NET_WM_STATE_SHADED"); }));
    EXPECT_EQ(windows.focusedWindow(), reference);
}

TEST_F(Focus, aWindowThatIsGoneAnswersNothingToItsReference) {
    const auto reference = openFocused();
    client.close(window);
    EXPECT_TRUE(waitUntil([&] { return !windows.position(reference); }));
    EXPECT_FALSE(windows.size(reference));
    EXPECT_FALSE(windows.processId(reference));
    EXPECT_FALSE(windows.focusedWindow());
    windows.place(reference, {0, 0, 500, 500});
}

TEST_F(Focus, isNothingWithoutAWindowManager) {
    openFocused();
    currentSession().stopWindowManager();
    EXPECT_FALSE(windows.focusedWindow());
}

TEST_F(Focus, aChangeOfTheActiveWindowIsToldToAll) {
    X11ActiveWindow active(session);
    const xcb_window_t first = client.open();
    focus(first);
    EXPECT_TRUE(waitUntil([&] { return active.current() == first; }));
    QSignalSpy one(&active, &X11ActiveWindow::changed);
    QSignalSpy two(&active, &X11ActiveWindow::changed);
    const xcb_window_t second = client.open();
    focus(second);
    const auto last = [](const QSignalSpy &spy) {
        return spy.isEmpty() ? xcb_window_t(XCB_NONE) : spy.last().first().value<xcb_window_t>();
    };
    EXPECT_TRUE(waitUntil([&] { return last(one) == second && last(two) == second; }));
    client.close(second);
    EXPECT_TRUE(waitUntil([&] { return last(one) != second && last(two) != second; }));
    EXPECT_NE(active.current(), second);
}

TEST_F(Focus, theEndOfTheWindowManagerIsToldAndItsReturn) {
    X11ActiveWindow active(session);
    QSignalSpy changed(&active, &X11ActiveWindow::changed);
    const auto isTold = [&](xcb_window_t expected) {
        return !changed.isEmpty() && changed.last().first().value<xcb_window_t>() == expected;
    };
    openFocused();
    ASSERT_TRUE(waitUntil([&] { return isTold(window); }));
    currentSession().stopWindowManager();
    EXPECT_TRUE(waitUntil([&] { return isTold(XCB_NONE); }));
    currentSession().startWindowManager(qEnvironmentVariable("PIMLOFT_TEST_WM"));
    focus(window);
    EXPECT_TRUE(waitUntil([&] { return isTold(window); }));
    EXPECT_EQ(active.current(), window);
}

}  // namespace
}  // namespace pimloft::test
