// SPDX-License-Identifier: MIT
#include "platform/hotkeys/x11_hotkeys.h"
#include "support/desktop_session.h"
#include "support/key_sink.h"
#include "support/physical_input.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using namespace test;

constexpr CarbonModifiers commandShift = CarbonModifiers::command | CarbonModifiers::shift;
constexpr CarbonModifiers controlCommand = CarbonModifiers::control | CarbonModifiers::command;

struct HotkeysTest : testing::Test {
    X11Session session;
    X11RawInput input{session};
    X11Keyboard keyboard{session, input};
    X11Hotkeys hotkeys{session, keyboard, input};
    X11Session other;  ///< another program
    KeySink sink;
    PhysicalInput hands;
    QStringList pressed;

    HotkeysTest() {
        hotkeys.onPressed = [this](HotkeyId id) { pressed << QString::number(std::uint32_t(id)); };
    }

    /// The ids that were reported up to here: a letter typed now has reached the window in front.
    QString report() {
        hands.tap(KEY_Q);
        EXPECT_TRUE(waitUntil([&] { return sink.typed().contains(QStringLiteral("AD01")); }));
        session.roundTrip();
        bool turned = false;
        QMetaObject::invokeMethod(
            &session, [&] { turned = true; }, Qt::QueuedConnection);
        EXPECT_TRUE(waitUntil([&] { return turned; }));
        return std::exchange(pressed, {}).join(QLatin1Char(' '));
    }

    /// Runs a program that changes the keyboard, and waits until the change has been taken in.
    void changeMap(const QString &program, const QStringList &arguments) {
        int changes = 0;
        const auto connection = QObject::connect(&keyboard, &X11Keyboard::mapChanged, [&] { ++changes; });
        currentSession().run(program, arguments);
        EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
        session.roundTrip();
        QObject::disconnect(connection);
    }

    /// Whether another program gets this very combination.
    bool isFree(xcb_keycode_t key, unsigned modifiers) {
        const auto cookie =
            xcb_grab_key_checked(other.connection(), false, other.root(), std::uint16_t(modifiers), key,
                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !XcbReply<xcb_generic_error_t>(xcb_request_check(other.connection(), cookie));
    }
};

constexpr xcb_keycode_t code(int key) {
    return xcb_keycode_t(key + 8);
}

TEST_F(HotkeysTest, aPressIsReportedAndDoesNotReachTheProgramInFront) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{7}));
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    EXPECT_TRUE(waitUntil([&] { return !pressed.empty(); }));
    EXPECT_FALSE(sink.keys().contains(QStringLiteral("+AB04")));
    EXPECT_EQ(report(), QStringLiteral("7"));
}

TEST_F(HotkeysTest, otherModifiersAreAnotherCombination) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    hands.chord({KEY_LEFTMETA, KEY_V});
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_V});
    hands.chord({KEY_LEFTSHIFT, KEY_V});
    EXPECT_EQ(report(), QString());
}

TEST_F(HotkeysTest, theRightHandModifiersCountAsWell) {
    EXPECT_TRUE(hotkeys.grant(Key::leftArrow, controlCommand, HotkeyId{1}));
    hands.chord({KEY_RIGHTCTRL, KEY_RIGHTMETA, KEY_LEFT});
    EXPECT_EQ(report(), QStringLiteral("1"));
}

TEST_F(HotkeysTest, optionIsAlt) {
    EXPECT_TRUE(hotkeys.grant(Key::v, CarbonModifiers::option, HotkeyId{1}));
    hands.chord({KEY_LEFTALT, KEY_V});
    EXPECT_EQ(report(), QStringLiteral("1"));
}

TEST_F(HotkeysTest, theLocksMakeNoDifference) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    for (const int lock : {KEY_NUMLOCK, KEY_CAPSLOCK, KEY_NUMLOCK}) {
        hands.tap(lock);
        hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
        EXPECT_EQ(report(), QStringLiteral("1"));
    }
}

TEST_F(HotkeysTest, aHeldKeyIsPressedOnce) {
    currentSession().run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                  QStringLiteral("100"), QStringLiteral("50")});
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    int arrived = 0;
    const auto presses = session.subscribe(
        [&](const xcb_generic_event_t &event) { arrived += X11Session::type(event) == XCB_KEY_PRESS; });
    hands.press(KEY_LEFTMETA);
    hands.press(KEY_LEFTSHIFT);
    hands.press(KEY_V);
    EXPECT_TRUE(waitUntil([&] { return arrived >= 4; }));
    hands.release(KEY_V);
    hands.tap(KEY_V);
    hands.release(KEY_LEFTSHIFT);
    hands.release(KEY_LEFTMETA);
    EXPECT_EQ(report(), QStringLiteral("1 1"));
}

TEST_F(HotkeysTest, aCombinationOfAnotherProgramIsRefusedAndLeftAlone) {
    ASSERT_TRUE(isFree(code(KEY_V), XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
    EXPECT_FALSE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    EXPECT_EQ(report(), QString());
}

TEST_F(HotkeysTest, aCombinationThatAnotherProgramOwnsInPartIsNotHeldInPart) {
    ASSERT_TRUE(isFree(code(KEY_V), XCB_MOD_MASK_4 | XCB_MOD_MASK_LOCK));
    EXPECT_FALSE(hotkeys.grant(Key::v, CarbonModifiers::command, HotkeyId{1}));
    session.roundTrip();
    for (const unsigned locks : {0u, unsigned(XCB_MOD_MASK_2), unsigned(XCB_MOD_MASK_2 | XCB_MOD_MASK_LOCK)})
        EXPECT_TRUE(isFree(code(KEY_V), XCB_MOD_MASK_4 | locks)) << locks;
}

TEST_F(HotkeysTest, askedForAgainACombinationReportsTheNewestIdOnly) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{2}));
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    EXPECT_EQ(report(), QStringLiteral("2"));
}

TEST_F(HotkeysTest, aKeyThatNoKeyboardHasIsRefused) {
    constexpr KeyCode function{63};
    EXPECT_FALSE(hotkeys.grant(function, CarbonModifiers::command, HotkeyId{1}));
}

TEST_F(HotkeysTest, theSecondHotkeyUnderHeldModifiersIsReportedToo) {
    EXPECT_TRUE(hotkeys.grant(Key::leftArrow, controlCommand, HotkeyId{1}));
    EXPECT_TRUE(hotkeys.grant(Key::rightArrow, controlCommand, HotkeyId{2}));
    hands.press(KEY_LEFTCTRL);
    hands.press(KEY_LEFTMETA);
    hands.press(KEY_LEFT);
    hands.tap(KEY_RIGHT);
    hands.release(KEY_LEFT);
    hands.release(KEY_LEFTMETA);
    hands.release(KEY_LEFTCTRL);
    EXPECT_EQ(report(), QStringLiteral("1 2"));
}

TEST_F(HotkeysTest, anotherLayoutPrintsAnotherLetterOnTheSamePosition) {
    constexpr KeyCode y{16};
    EXPECT_TRUE(hotkeys.grant(y, commandShift, HotkeyId{1}));
    changeMap(QStringLiteral("setxkbmap"), {QStringLiteral("de")});
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_Y});
    EXPECT_EQ(report(), QStringLiteral("1"));
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_Z});
    EXPECT_EQ(report(), QString());
}

TEST_F(HotkeysTest, aPositionWithAnotherNumberIsFollowed) {
    EXPECT_TRUE(hotkeys.grant(Key::leftArrow, controlCommand, HotkeyId{1}));
    changeMap(QStringLiteral("setxkbmap"), {QStringLiteral("-keycodes"), QStringLiteral("xfree86")});
    // Where that keyboard has its Super and its left arrow.
    constexpr int super = 115 - 8;
    constexpr int left = 100 - 8;
    hands.chord({KEY_LEFTCTRL, super, left});
    EXPECT_EQ(report(), QStringLiteral("1"));
    EXPECT_TRUE(isFree(code(KEY_LEFT), XCB_MOD_MASK_4 | XCB_MOD_MASK_CONTROL));
}

TEST_F(HotkeysTest, aPositionThatMovesToWhatAnotherProgramOwnsIsHadOnceItIsFree) {
    // Where the other keyboard has its Super and its left arrow.
    constexpr int super = 115 - 8;
    constexpr int left = 100 - 8;
    constexpr unsigned modifiers = XCB_MOD_MASK_4 | XCB_MOD_MASK_CONTROL;
    EXPECT_TRUE(hotkeys.grant(Key::leftArrow, controlCommand, HotkeyId{1}));
    ASSERT_TRUE(isFree(code(left), modifiers)) << "the other program owns it from here on";
    changeMap(QStringLiteral("setxkbmap"), {QStringLiteral("-keycodes"), QStringLiteral("xfree86")});
    EXPECT_FALSE(hotkeys.grant(Key::leftArrow, controlCommand, HotkeyId{2}));
    xcb_ungrab_key(other.connection(), code(left), other.root(), modifiers);
    other.roundTrip();
    EXPECT_TRUE(hotkeys.grant(Key::leftArrow, controlCommand, HotkeyId{3}));
    hands.chord({KEY_LEFTCTRL, super, left});
    EXPECT_EQ(report(), QStringLiteral("3"));
}

TEST_F(HotkeysTest, aLockThatMovesToAnotherModifierIsFollowed) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    changeMap(QStringLiteral("xmodmap"), {QStringLiteral("-e"), QStringLiteral("remove mod2 = Num_Lock"),
                                          QStringLiteral("-e"), QStringLiteral("add mod3 = Num_Lock")});
    EXPECT_TRUE(waitUntil([&] { return (keyboard.map().locks() & XCB_MOD_MASK_3) != 0; }));
    hands.tap(KEY_NUMLOCK);
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    EXPECT_EQ(report(), QStringLiteral("1"));
}

TEST_F(HotkeysTest, whileAHotkeyIsHeldItsHoldOnTheKeyboardCanBeEnded) {
    currentSession().run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                  QStringLiteral("100"), QStringLiteral("50")});
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    int arrived = 0;
    const auto presses = session.subscribe(
        [&](const xcb_generic_event_t &event) { arrived += X11Session::type(event) == XCB_KEY_PRESS; });
    hands.press(KEY_LEFTMETA);
    hands.press(KEY_LEFTSHIFT);
    hands.press(KEY_V);
    EXPECT_TRUE(waitUntil([&] { return pressed.size() == 1; }));
    keyboard.endHotkeyGrab();
    const auto grab = [&] {
        const XcbReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            other.connection(),
            xcb_grab_keyboard(other.connection(), false, other.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                              XCB_GRAB_MODE_ASYNC),
            nullptr));
        return reply ? int(reply->status) : -1;
    };
    EXPECT_EQ(grab(), XCB_GRAB_STATUS_SUCCESS);
    xcb_ungrab_keyboard(other.connection(), XCB_CURRENT_TIME);
    other.roundTrip();
    hands.release(KEY_V);
    hands.tap(KEY_V);
    hands.release(KEY_LEFTSHIFT);
    hands.release(KEY_LEFTMETA);
    EXPECT_EQ(report(), QStringLiteral("1 1"));
}

TEST_F(HotkeysTest, aPressThatComesToAWindowOfOursCountsWhileTheWindowHoldsTheKeyboard) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    constexpr unsigned commandShiftState = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;
    const auto event = [](int key, unsigned state) {
        xcb_key_press_event_t event{};
        event.detail = code(key);
        event.state = std::uint16_t(state);
        return event;
    };
    EXPECT_FALSE(hotkeys.takePress(event(KEY_V, 0)));
    EXPECT_FALSE(hotkeys.takePress(event(KEY_C, commandShiftState)));
    EXPECT_TRUE(hotkeys.takePress(event(KEY_V, commandShiftState | XCB_MOD_MASK_LOCK)));
    // Repeats belong to it, also when a modifier was let go.
    EXPECT_TRUE(hotkeys.takePress(event(KEY_V, XCB_MOD_MASK_SHIFT)));
    EXPECT_TRUE(hotkeys.takeRelease(event(KEY_V, 0)));
    EXPECT_FALSE(hotkeys.takeRelease(event(KEY_V, 0)));
    EXPECT_FALSE(hotkeys.takePress(event(KEY_V, 0)));
    EXPECT_EQ(report(), QStringLiteral("1"));
}

}  // namespace
}  // namespace pimloft
