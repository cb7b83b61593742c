// SPDX-License-Identifier: MIT
#include "platform/events/x11_mouse_watch.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"
#include "support/qt_printers.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <optional>

namespace pimloft {
namespace {

using namespace test;

/// A watch on the test's server, and what it reported.
struct MouseWatchTest : testing::Test {
    X11Session session;
    X11RawInput input{session};
    X11Displays displays{session, 1};
    X11MouseWatch watch{input, displays};
    std::vector<MouseEvent> events;
    PhysicalInput hands;
    std::unique_ptr<MouseTap> tap;

    MouseWatchTest() {
        hands.moveTo({400, 300});
        start();
    }

    void start() {
        tap = watch.install([this](const MouseEvent &event) { events.push_back(event); });
        ASSERT_TRUE(tap);
        session.roundTrip();
    }

    bool ended() const { return !events.empty() && events.back().type == MouseEventType::leftUp; }

    /// Down, where; how many drags; up, where.
    QString summary() const {
        QStringList words;
        int drags = 0;
        const auto at = [](QPointF p) { return QStringLiteral("(%1, %2)").arg(p.x()).arg(p.y()); };
        for (const MouseEvent &event : events) {
            if (event.type == MouseEventType::leftDragged) {
                ++drags;
                continue;
            }
            if (drags)
                words << QStringLiteral("dragged");
            drags = 0;
            words << (event.type == MouseEventType::leftDown ? QStringLiteral("down") : QStringLiteral("up"));
            words.back() += at(event.location);
        }
        if (drags)
            words << QStringLiteral("dragged");
        return words.join(QLatin1Char(' '));
    }
};

/// As the desktop's settings do for the left hand.
void swapButtons(X11Session &session) {
    const XcbReply<xcb_get_pointer_mapping_reply_t> now(xcb_get_pointer_mapping_reply(
        session.connection(), xcb_get_pointer_mapping(session.connection()), nullptr));
    ASSERT_TRUE(now);
    std::vector<std::uint8_t> map(xcb_get_pointer_mapping_map(now.get()),
                                  xcb_get_pointer_mapping_map(now.get()) + now->map_len);
    std::swap(map[0], map[2]);
    const XcbReply<xcb_set_pointer_mapping_reply_t> done(xcb_set_pointer_mapping_reply(
        session.connection(),
        xcb_set_pointer_mapping(session.connection(), std::uint8_t(map.size()), map.data()), nullptr));
    ASSERT_TRUE(done);
}

/// Lets everything that was done so far arrive: a notice sent after it has.
void settle(X11Session &session) {
    session.roundTrip();
    bool turned = false;
    QMetaObject::invokeMethod(
        &session, [&] { turned = true; }, Qt::QueuedConnection);
    ASSERT_TRUE(waitUntil([&] { return turned; }));
}

TEST_F(MouseWatchTest, aPressWithoutMotionIsADownAndAnUpAtThePointer) {
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(400, 300) up(400, 300)"));
}

TEST_F(MouseWatchTest, aDragIsReportedUpToItsLastPosition) {
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.glideTo({700, 450}, 60);
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(400, 300) dragged up(700, 450)"));
    EXPECT_EQ(events[events.size() - 2].location, QPointF(700, 450));
}

TEST_F(MouseWatchTest, theLastMoveBeforeAReleaseIsADragOfItsOwn) {
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.moveTo({900, 600});
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(400, 300) dragged up(900, 600)"));
    EXPECT_EQ(events.size(), 3u);
}

TEST_F(MouseWatchTest, aThousandMotionsASecondAreLookedAtAFewTimes) {
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    QElapsedTimer elapsed;
    elapsed.start();
    hands.glideTo({1000, 300}, 400);
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    // Every 10 ms, and where the motion begins and ends.
    EXPECT_LE(qint64(events.size()), elapsed.elapsed() / 10 + 6);
    EXPECT_GE(events.size(), 10u);
    for (std::size_t i = 2; i + 1 < events.size(); ++i)
        EXPECT_NE(events[i].location, events[i - 1].location);
}

TEST_F(MouseWatchTest, motionAfterARestIsReportedAgain) {
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    for (int x = 500; x <= 800; x += 100) {
        hands.moveTo({x, 300});
        EXPECT_TRUE(waitUntil([&] { return events.back().location == QPointF(x, 300); })) << x;
        // Longer than it takes to see that the pointer rests.
        QElapsedTimer rest;
        rest.start();
        EXPECT_TRUE(waitUntil([&] { return rest.elapsed() > 40; }));
    }
}

TEST_F(MouseWatchTest, nothingArrivesWhileNoButtonIsDown) {
    int arrived = 0;
    const auto everything = session.subscribe([&](const xcb_generic_event_t &) { ++arrived; });
    hands.glideTo({800, 500}, 50);
    settle(session);
    EXPECT_EQ(arrived, 0);
    hands.leftDown();
    hands.glideTo({600, 500}, 30);
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    settle(session);
    arrived = 0;
    hands.glideTo({800, 500}, 50);
    settle(session);
    EXPECT_EQ(arrived, 0);
}

TEST_F(MouseWatchTest, otherButtonsAreNotTheLeftOne) {
    hands.buttonDown(3);
    hands.glideTo({600, 400}, 20);
    hands.buttonUp(3);
    settle(session);
    EXPECT_EQ(summary(), QString());
}

TEST_F(MouseWatchTest, anotherButtonDuringADragDoesNotEndIt) {
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.buttonDown(3);
    hands.buttonUp(3);
    settle(session);
    EXPECT_FALSE(ended());
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(400, 300) up(400, 300)"));
}

TEST_F(MouseWatchTest, forALeftHandedUserTheRightButtonIsTheLeftOne) {
    swapButtons(session);
    hands.buttonDown(1);
    hands.buttonUp(1);
    settle(session);
    EXPECT_EQ(summary(), QString());
    hands.buttonDown(3);
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.buttonUp(3);
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(400, 300) up(400, 300)"));
}

TEST_F(MouseWatchTest, aClickThatIsOverBeforeItWasSeenLeavesNoHalfState) {
    // No event is read between the two.
    hands.leftDown();
    hands.leftUp();
    settle(session);
    EXPECT_EQ(summary(), QString());
    hands.moveTo({500, 500});
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(500, 500) up(500, 500)"));
}

TEST_F(MouseWatchTest, theWatchEndsWithItsTap) {
    tap.reset();
    hands.leftDown();
    hands.glideTo({600, 400}, 20);
    hands.leftUp();
    settle(session);
    EXPECT_EQ(summary(), QString());
}

TEST_F(MouseWatchTest, theTapMayGoFromWithinItsHandler) {
    for (const MouseEventType last :
         {MouseEventType::leftDown, MouseEventType::leftDragged, MouseEventType::leftUp}) {
        events.clear();
        hands.moveTo({400, 300});
        tap = watch.install([&](const MouseEvent &event) {
            events.push_back(event);
            if (event.type == last)
                tap.reset();
        });
        session.roundTrip();
        hands.leftDown();
        EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
        hands.glideTo({600, 400}, 30);
        hands.leftUp();
        EXPECT_TRUE(waitUntil([&] { return !tap; }));
        settle(session);
        EXPECT_EQ(events.back().type, last);
    }
}

TEST_F(MouseWatchTest, twoWatchesDoNotDisturbEachOther) {
    int others = 0;
    auto other = watch.install([&](const MouseEvent &) { ++others; });
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return others == 1 && !events.empty(); }));
    other.reset();
    hands.glideTo({600, 400}, 30);
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(400, 300) dragged up(600, 400)"));
    EXPECT_EQ(others, 1);
}

TEST_F(MouseWatchTest, locationsArePointsOfTheDesktop) {
    X11Displays scaled(session, 2);
    X11MouseWatch scaledWatch(input, scaled);
    tap = scaledWatch.install([this](const MouseEvent &event) { events.push_back(event); });
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events.front().location, QPointF(200, 150));
}

TEST_F(MouseWatchTest, tellsWhereThePointerIsInPointsFromTheLowerEdge) {
    EXPECT_EQ(watch.location(), QPointF(400, displays.displays().front().frame.height() - 300));
    X11Displays scaled(session, 2);
    X11MouseWatch scaledWatch(input, scaled);
    EXPECT_EQ(scaledWatch.location(), QPointF(200, scaled.displays().front().frame.height() - 150));
}

TEST_F(MouseWatchTest, aWindowThatTheWindowManagerMovesIsFollowed) {
    QWidget window;
    window.setGeometry(300, 300, 400, 200);
    window.show();
    QPoint from;
    QPoint grip;
    ASSERT_TRUE(waitUntil([&] {
        from = window.frameGeometry().topLeft();
        grip = {window.geometry().center().x(), window.geometry().top() - 8};
        hands.moveTo(grip);
        return grip.y() > from.y() && input.pointer().toplevel != XCB_NONE;
    }));
    hands.leftDown();
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    hands.glideTo(grip + QPoint(150, 120), 100);
    hands.leftUp();
    EXPECT_TRUE(waitUntil([&] { return ended(); }));
    EXPECT_EQ(summary(), QStringLiteral("down(%1, %2) dragged up(%3, %4)")
                             .arg(grip.x())
                             .arg(grip.y())
                             .arg(grip.x() + 150)
                             .arg(grip.y() + 120));
    EXPECT_TRUE(waitUntil([&] { return window.frameGeometry().topLeft() != from; }));
}

TEST(MouseWatch, withoutADisplayItIsRefused) {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":no such display");
    X11Session session;
    qputenv("DISPLAY", display);
    X11RawInput input(session);
    X11Displays displays(session, 1);
    X11MouseWatch watch(input, displays);
    EXPECT_FALSE(watch.install([](const MouseEvent &) {}));
}

}  // namespace
}  // namespace pimloft
