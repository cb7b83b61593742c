// SPDX-License-Identifier: MIT
#include "platform/events/tap_desk.h"
#include "platform/hotkeys/x11_hotkeys.h"

#include <QElapsedTimer>

#include <random>

namespace pimloft {
namespace {

using namespace test;

constexpr KeyCode codeOfTab{48};

struct X11KeyTapTest : TapDesk {
    X11Hotkeys hotkeys{session, keyboard, input};

    bool isKeyboardTaken() {
        const auto cookie = xcb_grab_keyboard(session.connection(), false, session.root(), XCB_CURRENT_TIME,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const XcbReply<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(session.connection(), cookie, nullptr));
        xcb_ungrab_keyboard(session.connection(), XCB_CURRENT_TIME);
        session.roundTrip();
        return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
    }
};

TEST_F(X11KeyTapTest, everyPhysicalKeyPassesTheFilterFromItsInstallationOn) {
    ASSERT_TRUE(install());
    hands.tap(KEY_A);
    hands.chord({KEY_LEFTCTRL, KEY_C});
    hands.chord({KEY_LEFTMETA, KEY_C});
    EXPECT_EQ(typed(), "AC01, Super AB03, Control AB03");
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, keysThatProgramsPressDoNotPassIt) {
    ASSERT_TRUE(install());
    hands.tap(KEY_A);
    EXPECT_EQ(typed(), "AC01");
    const int before = filter->asked;
    fakeKey(session.connection(), KEY_B + 8, true);
    fakeKey(session.connection(), KEY_B + 8, false);
    session.roundTrip();
    QString seen;
    EXPECT_TRUE(waitUntil([&] { return (seen += sink.typed()) == QStringLiteral("AB05"); }));
    EXPECT_EQ(filter->asked, before);
}

TEST_F(X11KeyTapTest, noModifierIsSeenPressedAndLetGoAlone) {
    ASSERT_TRUE(install());
    hands.chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_EQ(keys(), "+LCTL +LWIN -LCTL +AB03 -AB03 +LCTL -LWIN -LCTL");
    hands.chord({KEY_LEFTMETA, KEY_C});
    EXPECT_EQ(keys(), "+LWIN +LCTL -LWIN +AB03 -AB03 -LCTL");
}

TEST_F(X11KeyTapTest, removedItLeavesThePlainKeyboard) {
    for (int round = 0; round < rounds(20); ++round) {
        ASSERT_TRUE(install());
        hands.chord({KEY_LEFTCTRL, KEY_C});
        tap.remove();
        tap.remove();
        hands.chord({KEY_LEFTCTRL, KEY_C});
        ASSERT_EQ(typed(), "Super AB03, Control AB03");
        ASSERT_TRUE(nothingIsDown());
    }
}

TEST_F(X11KeyTapTest, itIsInstalledAndRemovedWhileTheUserTypes) {
    std::atomic<bool> done = false;
    std::thread typist([&] {
        PhysicalInput otherHand;
        while (!done)
            otherHand.tap(KEY_A);
    });
    QElapsedTimer elapsed;
    qint64 longest = 0;
    for (int round = 0; round < rounds(50); ++round) {
        EXPECT_TRUE(install());
        elapsed.start();
        tap.remove();
        longest = std::max(longest, elapsed.elapsed());
    }
    done = true;
    typist.join();
    RecordProperty("LongestRemovalInMilliseconds", int(longest));
    EXPECT_TRUE(nothingIsDown());
    hands.tap(KEY_B);
    EXPECT_TRUE(QString::fromStdString(typed()).endsWith(QStringLiteral("AB05")));
}

TEST_F(X11KeyTapTest, aRewrittenKeyIsRepeatedOnceAndNotByBothKeyboards) {
    run("xset", {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("200"), QStringLiteral("20")});
    filter->insteadOfA = codeOfB;
    ASSERT_TRUE(install());
    hands.press(KEY_A);
    QElapsedTimer held;
    held.start();
    waitUntil([&] { return held.elapsed() > 1000; });
    hands.release(KEY_A);
    const qint64 milliseconds = held.elapsed();
    const QStringList presses = QString::fromStdString(typed()).split(QStringLiteral(", "));
    EXPECT_EQ(QSet<QString>(presses.begin(), presses.end()), QSet<QString>{QStringLiteral("AB05")});
    EXPECT_GE(presses.size(), 5);
    EXPECT_LE(presses.size(), 2 + milliseconds / 50);
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, aHeldShortcutIsRepeatedWithItsModifiers) {
    run("xset", {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("100"), QStringLiteral("50")});
    ASSERT_TRUE(install());
    hands.press(KEY_LEFTCTRL);
    hands.press(KEY_C);
    QString all;
    EXPECT_TRUE(waitUntil(
        [&] { return (all += sink.typed() + QLatin1Char(' ')).count(QStringLiteral("AB03")) > 5; }));
    EXPECT_EQ(all.count(QStringLiteral("AB03")), all.count(QStringLiteral("Super AB03")));
    hands.release(KEY_C);
    hands.release(KEY_LEFTCTRL);
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, aBurstKeepsItsOrder) {
    ASSERT_TRUE(install());
    filter->insteadOfA = codeOfB;
    static constexpr int keys[] = {KEY_A, KEY_S, KEY_F, KEY_C};
    std::minstd_rand random(7);
    std::string expected;
    for (int i = 0; i < 2000; ++i) {
        const int key = keys[random() % std::size(keys)];
        const bool chord = random() % 3 == 0;
        if (chord)
            hands.chord({KEY_LEFTCTRL, key});
        else
            hands.tap(key);
        const char *name = key == KEY_A ? "AB05" : key == KEY_S ? "AC02" : key == KEY_F ? "AC04" : "AB03";
        expected += std::string(expected.empty() ? "" : ", ") + (chord ? "Super " : "") + name;
    }
    EXPECT_EQ(typed(), expected);
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, keysHeldWhenItStartsAreLetGoWithTheUser) {
    hands.press(KEY_LEFTSHIFT);
    hands.press(KEY_S);
    ASSERT_TRUE(install());
    hands.tap(KEY_D);
    hands.release(KEY_S);
    hands.release(KEY_LEFTSHIFT);
    EXPECT_TRUE(nothingIsDown());
    hands.tap(KEY_D);
    EXPECT_EQ(typed(), "Shift AC02, Shift AC03, AC03");
}

TEST_F(X11KeyTapTest, keysHeldWhenItEndsAreUpAtOnce) {
    ASSERT_TRUE(install());
    hands.press(KEY_LEFTCTRL);
    hands.press(KEY_C);
    tap.remove();
    EXPECT_EQ(hands.keysDown(), QSet<int>());
    EXPECT_EQ(hands.keysDownOnXTest(), QSet<int>());
    hands.release(KEY_C);
    hands.release(KEY_LEFTCTRL);
    EXPECT_TRUE(nothingIsDown());
    hands.tap(KEY_S);
    EXPECT_EQ(typed(), "Super AB03, AC02");
}

TEST_F(X11KeyTapTest, aModifierHeldThroughARestartStillCounts) {
    ASSERT_TRUE(install());
    hands.press(KEY_LEFTSHIFT);
    ASSERT_TRUE(install());
    hands.tap(KEY_S);
    hands.release(KEY_LEFTSHIFT);
    EXPECT_EQ(typed(), "Shift AC02");
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, theProgramInFrontIsThatOfTheNextKey) {
    ASSERT_TRUE(install());
    tap.setFrontmost("com.apple.Terminal");
    hands.chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_EQ(typed(), "Control AB03");
    tap.setFrontmost("org.gnome.gedit");
    hands.chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_EQ(typed(), "Super AB03");
}

TEST_F(X11KeyTapTest, theProgramInFrontIsRememberedForTheNextTap) {
    tap.setFrontmost("com.apple.Terminal");
    ASSERT_TRUE(install());
    hands.chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_EQ(typed(), "Control AB03");
}

TEST_F(X11KeyTapTest, aStoppedMainThreadDelaysNoKey) {
    ASSERT_TRUE(install());
    // The main thread is this one: it waits here, and the server tells on the hands' connection.
    QElapsedTimer elapsed;
    elapsed.start();
    for (int i = 0; i < 200; ++i) {
        hands.press(KEY_RIGHTSHIFT);
        while (!hands.keysDown().contains(KEY_RIGHTSHIFT))
            ASSERT_LT(elapsed.elapsed(), 5000);
        hands.release(KEY_RIGHTSHIFT);
        while (hands.keysDown().contains(KEY_RIGHTSHIFT))
            ASSERT_LT(elapsed.elapsed(), 5000);
    }
}

TEST_F(X11KeyTapTest, otherProgramsHotkeysSeeTheRewrittenKeys) {
    X11Session other;
    int presses = 0;
    const auto events = other.subscribe(
        [&](const xcb_generic_event_t &event) { presses += X11Session::type(event) == XCB_KEY_PRESS; });
    xcb_grab_key(other.connection(), false, other.root(), XCB_MOD_MASK_4, KEY_J + 8, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    other.roundTrip();
    ASSERT_TRUE(install());
    hands.chord({KEY_LEFTCTRL, KEY_J});
    EXPECT_TRUE(waitUntil([&] { return presses == 1; }));
    hands.chord({KEY_LEFTMETA, KEY_J});
    EXPECT_EQ(typed(), "Control AC07");
    EXPECT_EQ(presses, 1);
}

TEST_F(X11KeyTapTest, theWindowManagersOwnKeysAreTheRewrittenOnes) {
    if (qEnvironmentVariable("PIMLOFT_TEST_WM") != QLatin1String("openbox"))
        GTEST_SKIP() << "there is no window manager to switch windows";
    filter->insteadOfA = codeOfTab;
    ASSERT_TRUE(install());
    KeySink other({500, 50, 100, 100});
    EXPECT_TRUE(other.isActive());
    for (const auto &[key, next] : {std::pair(KEY_A, &sink), std::pair(KEY_TAB, &other)}) {
        // The window manager holds the keyboard until Alt is let go. After another keyboard than before has
        // typed, it is deaf until it has grabbed its keys anew.
        EXPECT_TRUE(waitUntil([&, key = key, next = next] {
            hands.press(KEY_LEFTALT);
            hands.tap(key);
            waitUntil([&] { return isKeyboardTaken(); }, 300);
            hands.release(KEY_LEFTALT);
            return waitUntil([&] { return next->isActive(); }, 1000);
        }));
    }
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, ourOwnHotkeysSeeTheRewrittenKeys) {
    ASSERT_TRUE(hotkeys.grant(Key::v, CarbonModifiers::command | CarbonModifiers::shift, HotkeyId{1}));
    int presses = 0;
    hotkeys.onPressed = [&](HotkeyId) { ++presses; };
    ASSERT_TRUE(install());
    for (int round = 1; round <= 3; ++round) {
        hands.chord({KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_V});
        EXPECT_TRUE(waitUntil([&] { return presses == round; }));
        EXPECT_TRUE(nothingIsDown());
    }
}

TEST_F(X11KeyTapTest, aProgramThatHoldsTheKeyboardGetsTheRewrittenKeys) {
    ASSERT_TRUE(install());
    KeySink grabber({500, 50, 100, 100});
    sink.activate();
    X11Session other;
    QStringList got;
    const auto events = other.subscribe([&](const xcb_generic_event_t &event) {
        if (X11Session::type(event) == XCB_KEY_PRESS)
            got << QString::number(reinterpret_cast<const xcb_key_press_event_t &>(event).detail - 8);
    });
    const auto cookie = xcb_grab_keyboard(other.connection(), false, other.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbReply<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(other.connection(), cookie, nullptr));
    ASSERT_EQ(reply->status, XCB_GRAB_STATUS_SUCCESS);
    filter->insteadOfA = codeOfB;
    hands.tap(KEY_A);
    EXPECT_TRUE(waitUntil([&] { return got == QStringList{QString::number(KEY_B)}; }));
    xcb_ungrab_keyboard(other.connection(), XCB_CURRENT_TIME);
    other.roundTrip();
    hands.tap(KEY_A);
    EXPECT_EQ(typed(), "AB05");
}

TEST_F(X11KeyTapTest, aProgramThatHoldsTheServerDoesNotHoldUpTheKeys) {
    ASSERT_TRUE(install());
    X11Session other;
    xcb_grab_server(other.connection());
    other.roundTrip();
    hands.press(KEY_RIGHTSHIFT);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!hands.keysDown().contains(KEY_RIGHTSHIFT))
        ASSERT_LT(elapsed.elapsed(), 5000);
    hands.release(KEY_RIGHTSHIFT);
    xcb_ungrab_server(other.connection());
    other.roundTrip();
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapTest, aKeyboardThatGoesWithKeysDownLeavesNoneBehind) {
    ASSERT_TRUE(install());
    const QString device = QStringLiteral("Xvfb keyboard");
    for (int round = 0; round < 3; ++round) {
        hands.press(KEY_LEFTCTRL);
        hands.press(KEY_C);
        EXPECT_TRUE(waitUntil([&] { return !hands.keysDown().isEmpty(); }));
        run("xinput", {QStringLiteral("disable"), device});
        EXPECT_TRUE(nothingIsDown());
        run("xinput", {QStringLiteral("enable"), device});
        hands.release(KEY_C);
        hands.release(KEY_LEFTCTRL);
        // It comes back under the tap.
        EXPECT_TRUE(waitUntil([&] {
            const int before = filter->asked;
            hands.tap(KEY_F11);
            return waitUntil([&] { return filter->asked > before; }, 100);
        }));
        EXPECT_TRUE(nothingIsDown());
        typed();
        hands.chord({KEY_LEFTCTRL, KEY_C});
        EXPECT_EQ(typed(), "Super AB03");
    }
}

TEST_F(X11KeyTapTest, aSecondTapIsRefusedWhileAnotherHasTheKeyboards) {
    ASSERT_TRUE(install());
    X11KeyTap second(keyboard, QStringLiteral(KEY_GUARD));
    EXPECT_FALSE(second.install(std::make_shared<SwapFilter>()));
    hands.chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_EQ(typed(), "Super AB03");
}

TEST_F(X11KeyTapTest, withoutAGuardTheKeyboardIsNotTaken) {
    X11KeyTap unguarded(keyboard, QStringLiteral("/nowhere/pimloft-keyguard"));
    EXPECT_FALSE(unguarded.install(filter));
    hands.chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_EQ(typed(), "Control AB03");
}

TEST_F(X11KeyTapTest, whateverTheHandsDoNothingIsDownAfterwards) {
    static constexpr int keys[] = {KEY_LEFTCTRL, KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_CAPSLOCK,
                                   KEY_A,        KEY_C,        KEY_V};
    for (unsigned seed = 1; seed <= unsigned(rounds(40)); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::minstd_rand random(seed);
        QSet<int> held;
        for (int step = 0; step < 60; ++step) {
            const unsigned chance = random() % 30;
            if (chance == 0) {
                ASSERT_TRUE(install());
            } else if (chance == 1) {
                tap.remove();
            } else if (chance == 2) {
                filter->swaps = random() % 2;
                filter->insteadOfA = random() % 2 ? codeOfB : KeyCode{0};
            } else if (chance == 3) {
                keyboard.post(KEY_V + 8, KeyFlags::control);
            } else {
                const int key = keys[random() % std::size(keys)];
                if (held.contains(key) ? held.remove(key) : (held.insert(key), false))
                    hands.release(key);
                else
                    hands.press(key);
            }
        }
        for (const int key : std::as_const(held))
            hands.release(key);
        ASSERT_TRUE(nothingIsDown());
        tap.remove();
    }
}

}  // namespace
}  // namespace pimloft
