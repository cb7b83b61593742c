// SPDX-License-Identifier: MIT
#include "platform/windows/windows_desk.h"

#include "platform/x11/x11_window_info.h"

#include <QCoreApplication>

#include <csignal>

namespace pimloft::test {
namespace {

constexpr QRect target{100, 50, 700, 640};

class Fault : public WindowsDesk {
protected:
    /// Reads answer the truth again, whatever has become of the window.
    bool hasSettled(const WindowReference &reference) {
        return windows.size(reference) == client.visibleFrame(window).size();
    }
};

TEST_F(Fault, aWindowThatVanishesInMidPlacementEndsItSilently) {
    for (const bool isMaximised : {false, true}) {
        const auto reference = openFocused();
        if (isMaximised) {
            client.changeState(window, X11Client::Change::add,
                               {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"});
            ASSERT_TRUE(waitUntil([&] { return client.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"); }));
        }
        windows.place(reference, target);
        client.close(window);
        EXPECT_TRUE(waitUntil([&] { return !windows.position(reference); }));
    }
    const auto next = openFocused();
    windows.place(next, target);
    expectFrame(target);
}

TEST_F(Fault, aWindowThatIsGoneBeforeItIsPlacedIsNothing) {
    const auto reference = openFocused();
    client.close(window);
    ASSERT_TRUE(waitUntil([&] { return !client.isManaged(window); }));
    windows.place(reference, target);
    EXPECT_FALSE(windows.position(reference));
}

TEST_F(Fault, withoutAWindowManagerAPlacementEnds) {
    const auto reference = openFocused();
    currentSession().stopWindowManager();
    windows.place(reference, target);
    EXPECT_EQ(windows.size(reference), target.size());
    EXPECT_TRUE(waitUntil([&] { return hasSettled(reference); }));
}

TEST_F(Fault, aWindowManagerThatEndsInMidPlacementLeavesTheWindowUsable) {
    const auto reference = openFocused();
    windows.place(reference, target);
    currentSession().stopWindowManager();
    EXPECT_TRUE(waitUntil([&] { return hasSettled(reference); }));
    currentSession().startWindowManager(qEnvironmentVariable("PIMLOFT_TEST_WM"));
    const auto again = focus(window);
    windows.place(again, {200, 100, 600, 500});
    expectFrame({200, 100, 600, 500});
}

TEST_F(Fault, aWindowManagerThatIsHeldUpStillBringsAMaximisedWindowToTheFrame) {
    const auto reference = openFocused();
    client.changeState(window, X11Client::Change::add,
                       {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"});
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window).width() == 1600; }));
    const auto check = session.property32(session.root(), session.atom("_NET_SUPPORTING_WM_CHECK"));
    const auto manager = pid_t(windowProcess(session, check.at(0)).value());
    kill(manager, SIGSTOP);
    windows.place(reference, target);
    EXPECT_TRUE(waitUntil([&] { return hasSettled(reference); }, 1000)) << "it is waited for without end";
    kill(manager, SIGCONT);
    expectFrame(target);
    EXPECT_FALSE(client.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"));
}

TEST_F(Fault, aWindowThatIsMovedAwayRightAfterwardsIsBroughtBackButNotForEver) {
    const auto reference = openFocused();
    windows.place(reference, target);
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window) == target; }));
    client.configure(window, {400, 300, 300, 200});
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window) != target; }));
    expectFrame(target);
    int moves = 0;
    // A program that insists has its way in the end.
    EXPECT_TRUE(waitUntil([&] {
        if (client.visibleFrame(window) != target)
            return false;
        ++moves;
        client.configure(window, {400, 300, 300, 200});
        waitUntil([&] { return client.visibleFrame(window) != target; }, 200);
        return !waitUntil([&] { return client.visibleFrame(window) == target; }, 300);
    }));
    EXPECT_LE(moves, 3);
}

/// Changes the shadow when the window has stood there for so many milliseconds.
class Shadow : public Fault {
protected:
    void expectToBeMadeUpForAfter(int quiet) {
        const auto reference = openFocused({.shadow = QMargins(26, 23, 26, 29)});
        windows.place(reference, target);
        expectFrame(target, quiet);
        client.setCardinals(window, "_GTK_FRAME_EXTENTS", {10, 10, 8, 12});
        EXPECT_NE(text(client.visibleFrame(window)), text(target));
        expectFrame(target);
    }
};

TEST_F(Shadow, thatChangesAtOnceIsMadeUpFor) {
    expectToBeMadeUpForAfter(0);
}

TEST_F(Shadow, thatChangesLateIsMadeUpFor) {
    expectToBeMadeUpForAfter(400);
}

TEST_F(Shadow, thatGoesOnChangingHasItsWayInTheEnd) {
    expectToBeMadeUpForAfter(400);
    int corrections = 1;
    EXPECT_TRUE(waitUntil(
        [&] {
            const std::uint32_t width = 12 + 2 * std::uint32_t(corrections);
            client.setCardinals(window, "_GTK_FRAME_EXTENTS", {width, width, width, width});
            if (!waitUntil([&] { return client.visibleFrame(window) == target; }, 500))
                return true;
            ++corrections;
            return waitUntil([&] { return client.visibleFrame(window) != target; }, 400);
        },
        10000));
    EXPECT_EQ(corrections, 2);
}

TEST_F(Fault, aWindowThatIsMovedStaysThereThoughItsShadowChangesLate) {
    const auto reference = openFocused({.shadow = QMargins(26, 23, 26, 29)});
    windows.place(reference, target);
    expectFrame(target, 400);
    client.configure(window, {400, 300, 300, 200});
    ASSERT_TRUE(waitUntil([&] { return client.visibleFrame(window) != target; }));
    client.setCardinals(window, "_GTK_FRAME_EXTENTS", {10, 10, 8, 12});
    EXPECT_FALSE(waitUntil([&] { return client.visibleFrame(window).topLeft() == target.topLeft(); }, 400));
}

TEST_F(Fault, aLaterWindowWithTheIdOfOneThatIsGoneIsAnother) {
    const auto second = std::make_unique<X11Client>();
    const xcb_window_t reused = second->open();
    const auto old = focus(reused);
    client.close(reused);  // by another program, as when its program ends
    ASSERT_TRUE(waitUntil([&] { return !client.isManaged(reused); }));
    QCoreApplication::processEvents();
    second->reopen(reused);
    const auto young = focus(reused);
    EXPECT_NE(young, old);
    EXPECT_FALSE(windows.position(old));
    windows.place(young, target);
    window = reused;
    expectFrame(target);
}

}  // namespace
}  // namespace pimloft::test
