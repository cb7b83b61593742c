// SPDX-License-Identifier: MIT
#include "platform/events/mac_mouse_watch.h"

#include "fake_appkit.h"
#include "fake_events.h"
#include "mac_test.h"

#include <QTest>

namespace pimloft::test {

namespace {

using mac::deliverMouse;

class MacMouseWatchTest : public MacTest {
protected:
    void install() {
        tap_ = watch_.install([this](const MouseEvent &event) { add(event); });
        ASSERT_TRUE(tap_);
    }

    void add(const MouseEvent &event) {
        static constexpr std::array names{"down", "dragged", "up"};
        seen_ += std::string(names.at(std::size_t(event.type))) + ' ' + mac::plain(event.location.x()) + ' ' +
                 mac::plain(event.location.y()) + '\n';
    }

    MacMouseWatch watch_;
    std::unique_ptr<MouseTap> tap_;
    std::string seen_;
};

TEST_F(MacMouseWatchTest, onlyListensToTheLeftButtonAtTheHead) {
    install();
    EXPECT_EQ(log(), "create tap at location 0, place 0, options 1, mask 0x46\n"
                     "tap 1: create source of order 0\n"
                     "tap 1: add source in kCFRunLoopCommonModes\n"
                     "tap 1: enable\n");
    tap_.reset();
    EXPECT_EQ(log(), "tap 1: disable\n"
                     "tap 1: remove source in kCFRunLoopCommonModes\n");
}

TEST_F(MacMouseWatchTest, isRefusedWithoutPermission) {
    mac::setMayTap(false);
    EXPECT_FALSE(watch_.install([](const MouseEvent &) {}));
}

TEST_F(MacMouseWatchTest, tellsOfADragFromThePrimaryDisplaysTopLeftCorner) {
    install();
    deliverMouse(kCGEventLeftMouseDown, 10, 20);
    deliverMouse(kCGEventLeftMouseDragged, 30.5, 40);
    deliverMouse(kCGEventLeftMouseUp, 30.5, 40);
    EXPECT_EQ(seen_, "down 10 20\ndragged 30.5 40\nup 30.5 40\n");
}

TEST_F(MacMouseWatchTest, tellsOfMovesAtMostOnceAFrameAndOfTheLastOneBeforeTheRelease) {
    install();
    deliverMouse(kCGEventLeftMouseDown, 0, 0);
    deliverMouse(kCGEventLeftMouseDragged, 1, 0);
    deliverMouse(kCGEventLeftMouseDragged, 2, 0);
    deliverMouse(kCGEventLeftMouseDragged, 3, 0);
    deliverMouse(kCGEventLeftMouseUp, 3, 0);
    EXPECT_EQ(seen_, "down 0 0\ndragged 1 0\ndragged 3 0\nup 3 0\n");
}

TEST_F(MacMouseWatchTest, tellsWhereAPointerHasComeToRest) {
    install();
    deliverMouse(kCGEventLeftMouseDown, 0, 0);
    deliverMouse(kCGEventLeftMouseDragged, 1, 0);
    deliverMouse(kCGEventLeftMouseDragged, 2, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return seen_ == "down 0 0\ndragged 1 0\ndragged 2 0\n"; }));
}

TEST_F(MacMouseWatchTest, beginsWithAPress) {
    install();
    deliverMouse(kCGEventLeftMouseDragged, 1, 0);
    deliverMouse(kCGEventLeftMouseUp, 1, 0);
    EXPECT_EQ(seen_, "");
}

TEST_F(MacMouseWatchTest, staysEndedWhenTheSystemEndsIt) {
    install();
    log();
    mac::disableTaps(kCGEventTapDisabledByTimeout);
    runQueue();
    EXPECT_EQ(log(), "");
    EXPECT_EQ(mac::runningTaps(), 0);
    EXPECT_EQ(seen_, "");
}

TEST_F(MacMouseWatchTest, canBeEndedByItsHandler) {
    int calls = 0;
    tap_ = watch_.install([&](const MouseEvent &) {
        if (++calls == 2)
            tap_.reset();
    });
    deliverMouse(kCGEventLeftMouseDown, 0, 0);
    deliverMouse(kCGEventLeftMouseDragged, 1, 0);
    deliverMouse(kCGEventLeftMouseDragged, 2, 0);
    deliverMouse(kCGEventLeftMouseUp, 2, 0);
    EXPECT_EQ(calls, 2);
}

TEST_F(MacMouseWatchTest, knowsWhereThePointerIsFromTheBottomLeftCorner) {
    mac::desktop().pointerX = 12;
    mac::desktop().pointerY = 34.5;
    EXPECT_EQ(watch_.location(), QPointF(12, 34.5));
}

}  // namespace

}  // namespace pimloft::test
