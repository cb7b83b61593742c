// SPDX-License-Identifier: MIT
#include "platform/events/tap_desk.h"
#include "platform/events/x11_key_poster.h"
#include "platform/hotkeys/x11_hotkeys.h"

namespace pimloft {
namespace {

using namespace test;

struct X11KeyTapPostTest : TapDesk {
    X11Hotkeys hotkeys{session, keyboard, input};
};

TEST_F(X11KeyTapPostTest, aPostedShortcutIsWhatItShouldBeWhileItsOwnIsHeld) {
    X11KeyPoster poster(
        keyboard, [] {}, [] { return ShortcutChord::control; });
    ASSERT_TRUE(hotkeys.grant(Key::v, CarbonModifiers::command | CarbonModifiers::shift, HotkeyId{1}));
    int presses = 0;
    hotkeys.onPressed = [&](HotkeyId) {
        ++presses;
        poster.post(Key::v, KeyFlags::command);
    };
    for (const bool tapped : {true, false, true}) {
        if (tapped)
            ASSERT_TRUE(install());
        else
            tap.remove();
        filter->swaps = false;
        for (int round = 0; round < 2; ++round) {
            const int before = presses;
            hands.press(KEY_LEFTMETA);
            hands.press(KEY_LEFTSHIFT);
            hands.press(KEY_V);
            EXPECT_TRUE(waitUntil([&] { return presses == before + 1; }));
            hands.release(KEY_V);
            hands.release(KEY_LEFTSHIFT);
            hands.release(KEY_LEFTMETA);
            EXPECT_TRUE(nothingIsDown());
            EXPECT_EQ(typed(), "Control AB04");
        }
    }
}

TEST_F(X11KeyTapPostTest, modifiersStillHeldAfterAPostCountForTheNextKey) {
    X11KeyPoster poster(
        keyboard, [] {}, [] { return ShortcutChord::control; });
    filter->swaps = false;
    ASSERT_TRUE(install());
    hands.press(KEY_LEFTMETA);
    hands.press(KEY_LEFTSHIFT);
    EXPECT_TRUE(waitUntil([&] { return hands.keysDown().size() == 2; }));
    poster.post(Key::v, KeyFlags::command);
    hands.tap(KEY_C);
    hands.release(KEY_LEFTSHIFT);
    hands.release(KEY_LEFTMETA);
    EXPECT_EQ(typed(), "Control AB04, Super Shift AB03");
    EXPECT_TRUE(nothingIsDown());
}

TEST_F(X11KeyTapPostTest, whatTheUserHoldsIsKnownAsItIsDelivered) {
    filter->insteadOfA = codeOfB;
    ASSERT_TRUE(install());
    hands.press(KEY_A);
    EXPECT_TRUE(waitUntil([&] { return keyboard.isHeld(KEY_B + 8); }));
    EXPECT_FALSE(keyboard.isHeld(KEY_A + 8));
    hands.release(KEY_A);
    EXPECT_TRUE(waitUntil([&] { return !keyboard.isHeld(KEY_B + 8); }));
    tap.remove();
    hands.press(KEY_A);
    EXPECT_TRUE(keyboard.isHeld(KEY_A + 8));
}

}  // namespace
}  // namespace pimloft
