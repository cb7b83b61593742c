// SPDX-License-Identifier: MIT
// What the user types through a tap: layouts, locks and composed characters, in a text field.
#include "platform/events/swap_filter.h"
#include "platform/events/x11_key_tap.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"
#include "support/qt_printers.h"

#include <QLineEdit>

#include <gtest/gtest.h>

// A member of a structure in it is named as this keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace pimloft {
namespace {

using namespace test;

constexpr KeyCode numLock{71};
constexpr KeyCode codeOfB{11};

/// Makes a B of num lock.
struct NumLockFilter final : KeyFilter {
    KeyEvent filter(KeyEvent event, std::string_view, Instant) noexcept override {
        if (event.key == numLock)
            event.key = codeOfB;
        return event;
    }
};

struct X11KeyTapLayoutTest : testing::Test {
    X11Session session;
    X11RawInput input{session};
    X11Keyboard keyboard{session, input};
    X11KeyTap tap{keyboard, QStringLiteral(KEY_GUARD)};
    QLineEdit field;
    PhysicalInput hands;

    X11KeyTapLayoutTest() {
        setLayout({QStringLiteral("us"), QStringLiteral("-option"), QString()});
        field.setGeometry(100, 100, 300, 40);
        field.show();
        field.activateWindow();
        EXPECT_TRUE(waitUntil([this] { return field.hasFocus(); }));
    }
    ~X11KeyTapLayoutTest() override {
        tap.remove();
        setLayout({QStringLiteral("us"), QStringLiteral("-option"), QString()});
    }

    bool install() { return tap.install(std::make_shared<SwapFilter>()); }

    static void setLayout(const QStringList &arguments) {
        currentSession().run(QStringLiteral("setxkbmap"), arguments);
    }
    static void setLayoutOfPhysicalKeyboard(const QString &layout) {
        for (const QString &id :
             currentSession()
                 .run(QStringLiteral("xinput"),
                      {QStringLiteral("list"), QStringLiteral("--id-only"), QStringLiteral("Xvfb keyboard")})
                 .split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            setLayout({QStringLiteral("-device"), id, layout});
    }

    bool fieldBecomes(const QString &text) {
        const bool is = waitUntil([&] { return field.text() == text; });
        EXPECT_EQ(field.text(), text);
        field.clear();
        return is;
    }

    void typeAndExpect(std::initializer_list<int> keys, const QString &text) {
        for (const int key : keys)
            hands.tap(key);
        EXPECT_TRUE(fieldBecomes(text));
    }

    /// The locks and the group of every keyboard, that of the programs first.
    std::vector<std::pair<int, int>> locks() {
        std::vector<std::uint16_t> devices{masterKeyboard(session.connection())};
        for (const KeyDevice &device : keyDevices(session.connection()))
            devices.push_back(device.id);
        std::vector<std::pair<int, int>> all;
        for (const std::uint16_t device : devices) {
            const XcbReply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
                session.connection(), xcb_xkb_get_state(session.connection(), device), nullptr));
            all.emplace_back(state->lockedMods, state->lockedGroup);
        }
        return all;
    }
    bool locksAgree() {
        return waitUntil([&] {
            const auto all = locks();
            return std::all_of(all.begin(), all.end(), [&](const auto &each) { return each == all.front(); });
        });
    }
};

TEST_F(X11KeyTapLayoutTest, aGermanKeyboardStaysGerman) {
    setLayout({QStringLiteral("de")});
    ASSERT_TRUE(install());
    typeAndExpect({KEY_Y, KEY_SEMICOLON}, QStringLiteral("zö"));
    tap.remove();
    typeAndExpect({KEY_Y, KEY_SEMICOLON}, QStringLiteral("zö"));
}

TEST_F(X11KeyTapLayoutTest, theLayoutOfThePhysicalKeyboardCountsNotThatOfPrograms) {
    setLayoutOfPhysicalKeyboard(QStringLiteral("de"));
    typeAndExpect({KEY_Y}, QStringLiteral("z"));
    ASSERT_TRUE(install());
    typeAndExpect({KEY_Y}, QStringLiteral("z"));
    tap.remove();
    typeAndExpect({KEY_Y}, QStringLiteral("z"));
}

TEST_F(X11KeyTapLayoutTest, alsoWhenAProgramTypedLast) {
    setLayoutOfPhysicalKeyboard(QStringLiteral("de"));
    fakeKey(session.connection(), KEY_Y + 8, true);
    fakeKey(session.connection(), KEY_Y + 8, false);
    session.roundTrip();
    EXPECT_TRUE(fieldBecomes(QStringLiteral("y")));
    ASSERT_TRUE(install());
    typeAndExpect({KEY_Y}, QStringLiteral("z"));
}

TEST_F(X11KeyTapLayoutTest, anotherLayoutMeanwhileIsThereAtOnceAndStays) {
    ASSERT_TRUE(install());
    typeAndExpect({KEY_Y}, QStringLiteral("y"));
    setLayout({QStringLiteral("de")});
    typeAndExpect({KEY_Y}, QStringLiteral("z"));
    hands.press(KEY_RIGHTALT);
    hands.tap(KEY_Q);
    hands.release(KEY_RIGHTALT);
    EXPECT_TRUE(fieldBecomes(QStringLiteral("@")));
    tap.remove();
    typeAndExpect({KEY_Y}, QStringLiteral("z"));
}

TEST_F(X11KeyTapLayoutTest, keysThatChangePlacesMeanwhileAreKnownByTheirNewMeaning) {
    ASSERT_TRUE(install());
    setLayout({QStringLiteral("us"), QStringLiteral("-option"), QStringLiteral("ctrl:swapcaps")});
    field.setText(QStringLiteral("some text"));
    // Caps lock is Control now, and the filter makes Command of it: nothing is typed.
    EXPECT_TRUE(waitUntil([&] { return keyboard.map().flag(KEY_CAPSLOCK + 8) == KeyFlags::control; }));
    QSet<int> seen;
    EXPECT_TRUE(waitUntil([&] {
        hands.press(KEY_CAPSLOCK);
        hands.press(KEY_D);
        waitUntil([&] { return (seen = hands.keysDown()).contains(KEY_LEFTMETA); }, 100);
        hands.release(KEY_D);
        hands.release(KEY_CAPSLOCK);
        return seen.contains(KEY_LEFTMETA);
    }));
    EXPECT_TRUE(waitUntil([&] { return hands.keysDownOnXTest().isEmpty(); }));
}

TEST_F(X11KeyTapLayoutTest, theGroupIsSwitchedThroughTheTapAndStaysAfterIt) {
    setLayout({QStringLiteral("us,de"), QStringLiteral("-option"), QStringLiteral("grp:menu_toggle")});
    ASSERT_TRUE(install());
    typeAndExpect({KEY_Y, KEY_COMPOSE, KEY_Y}, QStringLiteral("yz"));
    EXPECT_TRUE(locksAgree());
    tap.remove();
    typeAndExpect({KEY_Y, KEY_COMPOSE, KEY_Y}, QStringLiteral("zy"));
    EXPECT_TRUE(waitUntil([&] { return locks().front().second == 0; }));
}

TEST_F(X11KeyTapLayoutTest, capsLockAndNumLockStayWithTheirLights) {
    typeAndExpect({KEY_CAPSLOCK, KEY_A}, QStringLiteral("A"));
    ASSERT_TRUE(install());
    EXPECT_TRUE(locksAgree());
    typeAndExpect({KEY_A, KEY_CAPSLOCK, KEY_A}, QStringLiteral("Aa"));
    EXPECT_TRUE(locksAgree());
    typeAndExpect({KEY_CAPSLOCK, KEY_NUMLOCK, KEY_KP1}, QStringLiteral("1"));
    EXPECT_TRUE(locksAgree());
    tap.remove();
    EXPECT_TRUE(locksAgree());
    typeAndExpect({KEY_A, KEY_KP1}, QStringLiteral("A1"));
    typeAndExpect({KEY_CAPSLOCK, KEY_NUMLOCK, KEY_A}, QStringLiteral("a"));
}

TEST_F(X11KeyTapLayoutTest, aLockThatIsRewrittenSwitchesNoLight) {
    ASSERT_TRUE(tap.install(std::make_shared<NumLockFilter>()));
    for (int round = 0; round < 3; ++round) {
        typeAndExpect({KEY_NUMLOCK}, QStringLiteral("b"));
        EXPECT_TRUE(locksAgree());
        EXPECT_EQ(locks().front().first, 0);
    }
    tap.remove();
    EXPECT_TRUE(locksAgree());
}

TEST_F(X11KeyTapLayoutTest, aLockThatAProgramSwitchesIsThatOfTheKeyboardToo) {
    ASSERT_TRUE(install());
    fakeKey(session.connection(), KEY_CAPSLOCK + 8, true);
    fakeKey(session.connection(), KEY_CAPSLOCK + 8, false);
    session.roundTrip();
    EXPECT_TRUE(locksAgree());
    EXPECT_NE(locks().front().first, 0);
    typeAndExpect({KEY_A, KEY_CAPSLOCK, KEY_A}, QStringLiteral("Aa"));
    EXPECT_TRUE(locksAgree());
}

TEST_F(X11KeyTapLayoutTest, charactersAreComposed) {
    setLayout({QStringLiteral("us"), QStringLiteral("-option"), QStringLiteral("compose:menu")});
    ASSERT_TRUE(install());
    typeAndExpect({KEY_COMPOSE, KEY_APOSTROPHE, KEY_E}, QStringLiteral("é"));
}

TEST_F(X11KeyTapLayoutTest, aLockedScreenGetsThePlainKeys) {
    const auto tell = [](bool active) {
        currentSession().run(QStringLiteral("dbus-send"),
                             {QStringLiteral("--session"), QStringLiteral("--type=signal"),
                              QStringLiteral("/org/freedesktop/ScreenSaver"),
                              QStringLiteral("org.freedesktop.ScreenSaver.ActiveChanged"),
                              active ? QStringLiteral("boolean:true") : QStringLiteral("boolean:false")});
    };
    const auto controlGives = [&](int key) {
        return waitUntil([&] {
            hands.press(KEY_LEFTCTRL);
            hands.press(KEY_F5);
            const bool gives = waitUntil([&] { return hands.keysDown() == QSet<int>{key, KEY_F5}; }, 100);
            hands.release(KEY_F5);
            hands.release(KEY_LEFTCTRL);
            return gives;
        });
    };
    ASSERT_TRUE(install());
    EXPECT_TRUE(controlGives(KEY_LEFTMETA));
    tell(true);
    EXPECT_TRUE(controlGives(KEY_LEFTCTRL));
    tell(false);
    EXPECT_TRUE(controlGives(KEY_LEFTMETA));
}

}  // namespace
}  // namespace pimloft
