// SPDX-License-Identifier: MIT
#include "platform/events/x11_key_poster.h"
#include "platform/hotkeys/x11_hotkeys.h"
#include "support/desktop_session.h"
#include "support/key_sink.h"
#include "support/physical_input.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using namespace test;

struct KeyPosterTest : testing::Test {
    X11Session session;
    X11RawInput input{session};
    X11Keyboard keyboard{session, input};
    X11Hotkeys hotkeys{session, keyboard, input};
    ShortcutChord chord = ShortcutChord::control;
    int typingEnded = 0;
    X11KeyPoster poster{keyboard, [this] { ++typingEnded; }, [this] { return chord; }};
    KeySink sink;
    PhysicalInput hands;

    /// What the window in front gets of the keys up to a letter that the user types last.
    QString received() {
        hands.tap(KEY_Q);
        QString all;
        EXPECT_TRUE(waitUntil([&] {
            const QString more = sink.typed();
            all += all.isEmpty() || more.isEmpty() ? more : QStringLiteral(", ") + more;
            return all.contains(QStringLiteral("AD01"));
        }));
        return all;
    }

    void holdAll(std::initializer_list<int> keys) {
        for (const int key : keys)
            hands.press(key);
    }

    void letGoAll(std::initializer_list<int> keys) {
        for (const int key : keys)
            hands.release(key);
        EXPECT_TRUE(waitUntil([&] { return hands.keysDownOnXTest().isEmpty(); }));
    }
};

TEST_F(KeyPosterTest, commandAndAKeyIsThePlatformsOwnShortcut) {
    poster.post(Key::v, KeyFlags::command);
    EXPECT_EQ(received(), QStringLiteral("Control AB04, AD01"));
    EXPECT_EQ(typingEnded, 1);
}

TEST_F(KeyPosterTest, aTerminalGetsTheChordThatItKnows) {
    chord = ShortcutChord::controlShift;
    poster.post(Key::v, KeyFlags::command);
    chord = ShortcutChord::shiftInsert;
    poster.post(Key::v, KeyFlags::command);
    EXPECT_EQ(received(), QStringLiteral("Control Shift AB04, Shift INS, AD01"));
}

TEST_F(KeyPosterTest, otherModifiersAreSentAsTheyAre) {
    poster.post(Key::leftArrow, KeyFlags::none);
    poster.post(Key::x, KeyFlags::control | KeyFlags::option);
    poster.post(Key::c, KeyFlags::command | KeyFlags::shift);
    EXPECT_EQ(received(), QStringLiteral("LEFT, Control Alt AB02, Control Shift AB03, AD01"));
}

TEST_F(KeyPosterTest, whatTheUserHoldsDoesNotChangeIt) {
    holdAll({KEY_LEFTMETA, KEY_LEFTSHIFT});
    poster.post(Key::v, KeyFlags::command);
    letGoAll({KEY_LEFTSHIFT, KEY_LEFTMETA});
    EXPECT_EQ(received(), QStringLiteral("Control AB04, AD01"));
}

TEST_F(KeyPosterTest, modifiersThatTheUserStillHoldsCountForTheNextKey) {
    holdAll({KEY_LEFTMETA, KEY_LEFTSHIFT});
    poster.post(Key::v, KeyFlags::command);
    hands.tap(KEY_C);
    letGoAll({KEY_LEFTSHIFT, KEY_LEFTMETA});
    hands.tap(KEY_C);
    EXPECT_EQ(received(), QStringLiteral("Control AB04, Super Shift AB03, AB03, AD01"));
}

TEST_F(KeyPosterTest, nothingStaysDownWhenTheUserLetsGo) {
    for (const bool first : {true, false}) {
        holdAll({KEY_LEFTMETA, KEY_RIGHTSHIFT, KEY_LEFTCTRL});
        poster.post(Key::v, KeyFlags::command);
        poster.post(Key::v, KeyFlags::command);
        if (first)
            letGoAll({KEY_LEFTMETA, KEY_RIGHTSHIFT, KEY_LEFTCTRL});
        else
            letGoAll({KEY_LEFTCTRL, KEY_RIGHTSHIFT, KEY_LEFTMETA});
        EXPECT_EQ(hands.keysDown(), QSet<int>());
    }
    EXPECT_EQ(received(), QStringLiteral("Control AB04, Control AB04, Control AB04, Control AB04, AD01"));
}

TEST_F(KeyPosterTest, whatTheUserLetsGoDuringAPostIsNotPressedAgain) {
    holdAll({KEY_LEFTMETA});
    poster.post(Key::v, KeyFlags::command);
    hands.release(KEY_LEFTMETA);
    // The release has not been heard of yet.
    poster.post(Key::v, KeyFlags::command);
    EXPECT_TRUE(waitUntil([&] { return hands.keysDownOnXTest().isEmpty(); }));
    EXPECT_EQ(hands.keysDown(), QSet<int>());
}

TEST_F(KeyPosterTest, fromAHotkeyWithTheSameKeyStillHeldItReachesTheWindowInFront) {
    constexpr CarbonModifiers all =
        CarbonModifiers::command | CarbonModifiers::shift | CarbonModifiers::control;
    EXPECT_TRUE(hotkeys.grant(Key::v, all, HotkeyId{1}));
    int presses = 0;
    hotkeys.onPressed = [&](HotkeyId) {
        ++presses;
        poster.post(Key::v, KeyFlags::command);
    };
    currentSession().run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                  QStringLiteral("100"), QStringLiteral("50")});
    holdAll({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_V});
    QString typed;
    EXPECT_TRUE(waitUntil([&] {
        typed += sink.typed();
        return !typed.isEmpty();
    }));
    // Long enough for a held key to repeat.
    QElapsedTimer held;
    held.start();
    EXPECT_TRUE(waitUntil([&] { return held.elapsed() > 300; }));
    letGoAll({KEY_V, KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTMETA});
    EXPECT_EQ(typed, QStringLiteral("Control AB04"));
    EXPECT_EQ(received(), QStringLiteral("AD01"));
    EXPECT_EQ(presses, 1);
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_V});
    EXPECT_TRUE(waitUntil([&] { return presses == 2; }));
}

TEST_F(KeyPosterTest, whereALetterIsElsewhereTheKeyThatTypesItIsPressed) {
    currentSession().run(QStringLiteral("setxkbmap"), {QStringLiteral("dvorak")});
    EXPECT_TRUE(waitUntil([&] { return keyboard.keycodeInCurrentLayout(Key::v) == KEY_DOT + 8; }));
    poster.post(Key::v, KeyFlags::command);
    EXPECT_EQ(received(), QStringLiteral("Control AB09, AD01"));
}

TEST_F(KeyPosterTest, theLayoutInUseDecidesWhereALetterIs) {
    currentSession().run(
        QStringLiteral("setxkbmap"),
        {QStringLiteral("us,dvorak,ru"), QStringLiteral("-option"), QStringLiteral("grp:menu_toggle")});
    const auto inGroup = [&](int group) { return keyboard.map().letterKeycode(Key::v, group); };
    EXPECT_TRUE(waitUntil([&] { return inGroup(1) == KEY_DOT + 8; }));
    EXPECT_EQ(inGroup(0), KEY_V + 8);
    // Where no key types the letter, programs look at the position.
    EXPECT_EQ(inGroup(2), KEY_V + 8);
    hands.tap(KEY_COMPOSE);
    EXPECT_EQ(keyboard.keycodeInCurrentLayout(Key::v), KEY_DOT + 8);
}

TEST_F(KeyPosterTest, aSwappedControlKeyIsFound) {
    currentSession().run(QStringLiteral("setxkbmap"),
                         {QStringLiteral("-option"), QStringLiteral("ctrl:swapcaps")});
    EXPECT_TRUE(waitUntil([&] {
        return keyboard.map().keysFor(KeyFlags::control) == std::vector<xcb_keycode_t>{KEY_CAPSLOCK + 8};
    }));
    poster.post(Key::v, KeyFlags::command);
    EXPECT_EQ(received(), QStringLiteral("Control AB04, AD01"));
}

TEST(KeyPoster, withoutXTestNothingHappens) {
    DesktopSession bare({.windowManager = {},
                         .screen = QStringLiteral("640x480x24"),
                         .serverArguments = {QStringLiteral("-extension"), QStringLiteral("XTEST")}});
    X11Session session;
    X11RawInput input(session);
    X11Keyboard keyboard(session, input);
    EXPECT_FALSE(keyboard.canPost());
    int typingEnded = 0;
    X11KeyPoster poster(
        keyboard, [&] { ++typingEnded; }, [] { return ShortcutChord::control; });
    poster.post(Key::v, KeyFlags::command);
    EXPECT_EQ(typingEnded, 0);
    session.roundTrip();
    EXPECT_TRUE(session.isConnected());
}

}  // namespace
}  // namespace pimloft
