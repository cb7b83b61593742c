// SPDX-License-Identifier: MIT
#include "platform/events/tap_state.h"

#include "platform/events/tap_table.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using namespace test;

constexpr KeyCode codeOfA{0};
constexpr KeyCode codeOfB{11};
constexpr KeyCode codeOfHome{115};
constexpr KeyCode codeOfEnd{119};
constexpr TapState::Source keyboard = 7;
constexpr TapState::Source otherKeyboard = 9;

TapState::Keys keySet(std::initializer_list<int> kernels) {
    TapState::Keys keys;
    for (const int kernel : kernels)
        keys.set(xKey(kernel));
    return keys;
}

struct TapStateTest : testing::Test {
    AnyFilter filter;
    TapState state{americanKeys(), filter};

    std::string down(int kernel, TapState::Source source = keyboard) {
        return text(state.key({source, xKey(kernel), true}, {}));
    }
    std::string up(int kernel, TapState::Source source = keyboard) {
        return text(state.key({source, xKey(kernel), false}, {}));
    }
    std::string post(int kernel, std::initializer_list<int> modifiers) {
        std::vector<TapKey> keys;
        for (const int modifier : modifiers)
            keys.push_back(xKey(modifier));
        return text(state.post(xKey(kernel), keys));
    }
    std::string stop() { return text(state.stop()); }
    void swap() { filter.decide = swapped; }
    void rewrite(KeyCode from, KeyCode to, KeyFlags added = KeyFlags::none,
                 KeyFlags removed = KeyFlags::none) {
        filter.decide = [=](KeyEvent event) {
            if (event.key == from && event.type != KeyEventType::flagsChanged) {
                event.key = to;
                event.flags =
                    KeyFlags((std::uint64_t(event.flags) & ~std::uint64_t(removed)) | std::uint64_t(added));
            }
            return event;
        };
    }
    /// "8 down 0x40000" for each event that the filter was asked about.
    std::string asked() {
        std::string all;
        for (const KeyEvent &event : std::exchange(filter.asked, {})) {
            static const char *const types[] = {"down", "up", "flags"};
            char line[64];
            std::snprintf(line, sizeof line, "%s%d %s 0x%llx", all.empty() ? "" : ", ", int(event.key),
                          types[int(event.type)], static_cast<unsigned long long>(event.flags));
            all += line;
        }
        return all;
    }
};

TEST_F(TapStateTest, whatTheFilterLeavesAloneIsDeliveredAsItIs) {
    EXPECT_EQ(down(KEY_LEFTSHIFT), "+LFSH");
    EXPECT_EQ(down(KEY_A), "+a");
    EXPECT_EQ(up(KEY_LEFTSHIFT), "-LFSH");
    EXPECT_EQ(up(KEY_A), "-a");
}

TEST_F(TapStateTest, theFilterHearsMacKeyCodesWithTheModifiersThatAreHeld) {
    down(KEY_LEFTCTRL);
    down(KEY_C);
    down(KEY_RIGHTSHIFT);
    up(KEY_C);
    up(KEY_LEFTCTRL);
    up(KEY_RIGHTSHIFT);
    EXPECT_EQ(asked(), "59 flags 0x40000, 8 down 0x40000, 60 flags 0x60000, 8 up 0x60000, 59 flags 0x20000, "
                       "60 flags 0x0");
}

TEST_F(TapStateTest, theFilterHearsTheModifiersOfTheUserNotThoseDelivered) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    up(KEY_C);
    EXPECT_EQ(asked(), "59 flags 0x40000, 8 down 0x40000, 8 up 0x40000");
}

TEST_F(TapStateTest, capsLockIsAChangeOfFlagsAsOnAMac) {
    EXPECT_EQ(down(KEY_CAPSLOCK), "+CAPS");
    EXPECT_EQ(up(KEY_CAPSLOCK), "-CAPS");
    EXPECT_EQ(asked(), "57 flags 0x0, 57 flags 0x0");
}

TEST_F(TapStateTest, theNewModifierIsPressedBeforeTheOldOneIsLetGo) {
    swap();
    EXPECT_EQ(down(KEY_LEFTCTRL), "+LCTL");
    EXPECT_EQ(down(KEY_C), "+LWIN -LCTL +c");
    EXPECT_EQ(up(KEY_C), "-c +LCTL -LWIN");
    EXPECT_EQ(up(KEY_LEFTCTRL), "-LCTL");
}

TEST_F(TapStateTest, whenTheUserLetsGoOfTheModifierFirstOnlyTheSubstituteIsLetGo) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(up(KEY_LEFTCTRL), "-LWIN");
    EXPECT_EQ(up(KEY_C), "-c");
}

TEST_F(TapStateTest, commandIsNotShownAgainAloneWhichWouldOpenAMenu) {
    swap();
    EXPECT_EQ(down(KEY_LEFTMETA), "+LWIN");
    EXPECT_EQ(down(KEY_C), "+LCTL -LWIN +c");
    EXPECT_EQ(up(KEY_C), "-c -LCTL");
    EXPECT_EQ(up(KEY_LEFTMETA), "");
}

TEST_F(TapStateTest, commandComesBackWithTheNextKeyThatWantsIt) {
    filter.decide = [](KeyEvent event) { return event.key == Key::c ? swapped(event) : event; };
    down(KEY_LEFTMETA);
    down(KEY_C);
    up(KEY_C);
    EXPECT_EQ(down(KEY_V), "+LWIN +v");
    EXPECT_EQ(up(KEY_V), "-v");
    EXPECT_EQ(up(KEY_LEFTMETA), "-LWIN");
}

TEST_F(TapStateTest, theNextKeyEndsTheChangeOfTheOneBefore) {
    filter.decide = [](KeyEvent event) { return event.key == Key::c ? swapped(event) : event; };
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(down(KEY_V), "+LCTL -LWIN +v");
    EXPECT_EQ(up(KEY_C), "-c");
    EXPECT_EQ(up(KEY_V), "-v");
    EXPECT_EQ(up(KEY_LEFTCTRL), "-LCTL");
}

TEST_F(TapStateTest, keysOfTheSameChangeShareIt) {
    swap();
    down(KEY_LEFTCTRL);
    EXPECT_EQ(down(KEY_C), "+LWIN -LCTL +c");
    EXPECT_EQ(down(KEY_V), "+v");
    EXPECT_EQ(up(KEY_C), "-c");
    EXPECT_EQ(up(KEY_V), "-v +LCTL -LWIN");
}

TEST_F(TapStateTest, aModifierThatJoinsAChangeIsSeenBesideIt) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(down(KEY_LEFTSHIFT), "+LFSH");
    EXPECT_EQ(up(KEY_LEFTSHIFT), "-LFSH");
    // The other key of the one that was replaced stays replaced with it.
    EXPECT_EQ(down(KEY_RIGHTCTRL), "");
    EXPECT_EQ(up(KEY_LEFTCTRL), "");
    EXPECT_EQ(up(KEY_C), "-c +RCTL -LWIN");
    EXPECT_EQ(up(KEY_RIGHTCTRL), "-RCTL");
}

TEST_F(TapStateTest, bothKeysOfAModifierAreReplaced) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_RIGHTCTRL);
    EXPECT_EQ(down(KEY_C), "+LWIN -LCTL -RCTL +c");
    EXPECT_EQ(up(KEY_C), "-c +LCTL +RCTL -LWIN");
}

TEST_F(TapStateTest, theUpReleasesWhatTheDownPressedWhateverTheFilterSaysByThen) {
    rewrite(codeOfA, codeOfB);
    EXPECT_EQ(down(KEY_A), "+b");
    filter.decide = [](KeyEvent event) { return event; };
    EXPECT_EQ(up(KEY_A), "-b");
    EXPECT_EQ(down(KEY_A), "+a");
    rewrite(codeOfA, codeOfB);
    EXPECT_EQ(up(KEY_A), "-a");
}

TEST_F(TapStateTest, modifiersThatARuleRequiresAreTakenAwayForItsKey) {
    rewrite(codeOfA, codeOfB, KeyFlags::option, KeyFlags::shift);
    down(KEY_LEFTSHIFT);
    EXPECT_EQ(down(KEY_A), "+LALT -LFSH +b");
    EXPECT_EQ(up(KEY_A), "-b +LFSH -LALT");
}

TEST_F(TapStateTest, homeAsTheStartOfTheLineIsTheKeyThatMeansThatHere) {
    rewrite(codeOfHome, Key::leftArrow, KeyFlags::command);
    EXPECT_EQ(down(KEY_HOME), "+HOME");
    EXPECT_EQ(up(KEY_HOME), "-HOME");
    rewrite(codeOfEnd, Key::rightArrow, KeyFlags::command);
    EXPECT_EQ(down(KEY_END), "+END");
}

TEST_F(TapStateTest, startOfTheLineKeepsTheOtherModifiersOnly) {
    rewrite(codeOfA, Key::leftArrow, KeyFlags::command);
    down(KEY_LEFTSHIFT);
    EXPECT_EQ(down(KEY_A), "+HOME");
    up(KEY_A);
    down(KEY_LEFTMETA);
    EXPECT_EQ(down(KEY_A), "-LWIN +HOME");
}

TEST_F(TapStateTest, anArrowThatWasOneBeforeKeepsItsCommand) {
    swap();
    down(KEY_LEFTCTRL);
    EXPECT_EQ(down(KEY_LEFT), "+LWIN -LCTL +LEFT");
}

TEST_F(TapStateTest, anArrowFromARuleWithoutCommandIsThatArrow) {
    rewrite(codeOfA, Key::leftArrow);
    EXPECT_EQ(down(KEY_A), "+LEFT");
}

TEST_F(TapStateTest, aKeyThatThisKeyboardLacksCannotBeSent) {
    rewrite(codeOfA, KeyCode{500}, KeyFlags::command);
    EXPECT_EQ(down(KEY_A), "+a");
    EXPECT_EQ(up(KEY_A), "-a");
}

TEST_F(TapStateTest, changesOfFlagsAreNeverRewritten) {
    filter.decide = [](KeyEvent event) { return KeyEvent{codeOfB, KeyFlags::option, event.type}; };
    EXPECT_EQ(down(KEY_LEFTCTRL), "+LCTL");
    EXPECT_EQ(up(KEY_LEFTCTRL), "-LCTL");
}

TEST_F(TapStateTest, keysThatMacOSDoesNotKnowPassUnseenByTheFilter) {
    swap();
    down(KEY_LEFTCTRL);
    asked();
    EXPECT_EQ(down(KEY_CALC), "+148");
    EXPECT_EQ(up(KEY_CALC), "-148");
    EXPECT_EQ(asked(), "");
}

TEST_F(TapStateTest, keysThatMacOSDoesNotKnowEndTheChangeBefore) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(down(KEY_CALC), "+LCTL -LWIN +148");
}

TEST_F(TapStateTest, twoKeysThatAreDeliveredAsOneAreTypedTwice) {
    rewrite(codeOfA, codeOfB);
    EXPECT_EQ(down(KEY_A), "+b");
    EXPECT_EQ(down(KEY_B), "-b +b");
    EXPECT_EQ(up(KEY_A), "");
    EXPECT_EQ(up(KEY_B), "-b");
}

TEST_F(TapStateTest, twoKeyboardsHoldTheSameModifierTogether) {
    EXPECT_EQ(down(KEY_LEFTSHIFT), "+LFSH");
    EXPECT_EQ(down(KEY_LEFTSHIFT, otherKeyboard), "");
    EXPECT_EQ(up(KEY_LEFTSHIFT), "");
    EXPECT_EQ(up(KEY_LEFTSHIFT, otherKeyboard), "-LFSH");
}

TEST_F(TapStateTest, aKeyThatARuleMakesAModifierLeavesTheHeldOneAlone) {
    rewrite(codeOfA, KeyCode{59});
    down(KEY_LEFTCTRL);
    EXPECT_EQ(down(KEY_A), "");
    EXPECT_EQ(up(KEY_LEFTCTRL), "");
    EXPECT_EQ(up(KEY_A), "-LCTL");
}

TEST_F(TapStateTest, whatWasHeldBeforeTheTapIsLetGoWithTheUser) {
    state.add(keyboard, keySet({KEY_A, KEY_LEFTSHIFT}), keySet({KEY_A, KEY_LEFTSHIFT}));
    EXPECT_EQ(down(KEY_C), "+c");
    EXPECT_EQ(asked(), "8 down 0x20000");
    EXPECT_EQ(up(KEY_A), "-a");
    EXPECT_EQ(up(KEY_LEFTSHIFT), "-LFSH");
}

TEST_F(TapStateTest, whatWasLetGoWhileTheTapCameIsPassedOn) {
    EXPECT_EQ(up(KEY_A), "-a");
}

TEST_F(TapStateTest, aModifierHeldSinceAnEarlierTapCountsForTheNextKey) {
    state.add(keyboard, keySet({KEY_LEFTSHIFT, KEY_A}), {});
    EXPECT_EQ(down(KEY_C), "+LFSH +c");
    EXPECT_EQ(up(KEY_C), "-c");
    EXPECT_EQ(up(KEY_LEFTSHIFT), "-LFSH");
}

TEST_F(TapStateTest, aKeyboardThatGoesTakesItsKeysWithIt) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    down(KEY_B, otherKeyboard);
    asked();
    EXPECT_EQ(text(state.remove(keyboard)), "-LWIN -c");
    EXPECT_EQ(asked(), "");
    EXPECT_EQ(up(KEY_B, otherKeyboard), "-b");
}

TEST_F(TapStateTest, stoppingLetsGoOfWhatThePressedKeysPressed) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(stop(), "-c -LWIN");
    EXPECT_EQ(stop(), "");
}

TEST_F(TapStateTest, stoppingLeavesToTheKeyboardWhatItHeldBeforeTheTap) {
    state.add(keyboard, keySet({KEY_A, KEY_LEFTCTRL}), keySet({KEY_A, KEY_LEFTCTRL}));
    EXPECT_EQ(stop(), "");
}

TEST_F(TapStateTest, stoppingLetsGoOfWhatItGaveBack) {
    swap();
    state.add(keyboard, keySet({KEY_LEFTCTRL}), keySet({KEY_LEFTCTRL}));
    down(KEY_C);
    EXPECT_EQ(up(KEY_C), "-c +LCTL -LWIN");
    EXPECT_EQ(stop(), "-LCTL");
}

TEST_F(TapStateTest, whileItPassesNothingIsChangedAndNobodyAsked) {
    swap();
    state.setPassing(true);
    EXPECT_EQ(down(KEY_LEFTCTRL), "+LCTL");
    EXPECT_EQ(down(KEY_C), "+c");
    EXPECT_EQ(asked(), "");
    state.setPassing(false);
    EXPECT_EQ(down(KEY_V), "+LWIN -LCTL +v");
}

TEST_F(TapStateTest, aLockEndsAChangeAtOnce) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(text(state.setPassing(true)), "+LCTL -LWIN");
    EXPECT_EQ(up(KEY_C), "-c");
}

TEST_F(TapStateTest, theFilterIsToldWhoIsInFront) {
    down(KEY_A);
    state.setFrontmost("com.apple.Terminal");
    up(KEY_A);
    EXPECT_EQ(filter.frontmosts, (std::vector<std::string>{"", "com.apple.Terminal"}));
}

TEST_F(TapStateTest, aPostedKeyHasItsModifiersAndNoOthers) {
    EXPECT_EQ(post(KEY_V, {KEY_LEFTCTRL}), "+LCTL +v -v -LCTL");
    down(KEY_LEFTSHIFT);
    EXPECT_EQ(post(KEY_V, {KEY_LEFTCTRL}), "+LCTL -LFSH +v -v +LFSH -LCTL");
    EXPECT_EQ(post(KEY_V, {KEY_LEFTSHIFT}), "+v -v");
    EXPECT_EQ(up(KEY_LEFTSHIFT), "-LFSH");
}

TEST_F(TapStateTest, aPostWhileItsShortcutIsHeldLeavesNothingDown) {
    down(KEY_LEFTMETA);
    down(KEY_LEFTSHIFT);
    down(KEY_V);
    EXPECT_EQ(post(KEY_V, {KEY_LEFTCTRL}), "+LCTL -LFSH -LWIN -v +v -v +LFSH -LCTL");
    // Whoever waits for the shortcut's end hears of it.
    EXPECT_EQ(up(KEY_V), "-v");
    EXPECT_EQ(down(KEY_C), "+LWIN +c");
    up(KEY_C);
    EXPECT_EQ(up(KEY_LEFTSHIFT), "-LFSH");
    EXPECT_EQ(up(KEY_LEFTMETA), "-LWIN");
}

TEST_F(TapStateTest, aPostDuringAChangeEndsIt) {
    swap();
    down(KEY_LEFTCTRL);
    down(KEY_C);
    EXPECT_EQ(post(KEY_V, {KEY_LEFTCTRL}), "+LCTL -LWIN +v -v");
    EXPECT_EQ(up(KEY_C), "-c");
    EXPECT_EQ(up(KEY_LEFTCTRL), "-LCTL");
}

TEST_F(TapStateTest, aPostDoesNotSwitchCapsLock) {
    down(KEY_CAPSLOCK);
    EXPECT_EQ(post(KEY_V, {KEY_LEFTCTRL}), "+LCTL +v -v -LCTL");
}

TEST_F(TapStateTest, whatIsHeldIsWhatWasDelivered) {
    rewrite(codeOfA, codeOfB);
    down(KEY_A);
    down(KEY_LEFTSHIFT);
    EXPECT_EQ(state.held(), keySet({KEY_B, KEY_LEFTSHIFT}));
    up(KEY_A);
    up(KEY_LEFTSHIFT);
    EXPECT_EQ(state.held(), TapState::Keys());
}

TEST_F(TapStateTest, aMapThatChangesMeanwhileLeavesNoKeyDown) {
    down(KEY_LEFTCTRL);
    down(KEY_A);
    TapKeys exchanged = americanKeys();
    std::swap(exchanged.keys[xKey(KEY_LEFTCTRL)], exchanged.keys[xKey(KEY_CAPSLOCK)]);
    exchanged.substitutes[1] = xKey(KEY_CAPSLOCK);
    state.setKeys(exchanged);
    EXPECT_EQ(up(KEY_A), "-a");
    EXPECT_EQ(up(KEY_LEFTCTRL), "-LCTL");
    EXPECT_EQ(down(KEY_CAPSLOCK), "+CAPS");
    EXPECT_EQ(up(KEY_CAPSLOCK), "-CAPS");
}

}  // namespace
}  // namespace pimloft
