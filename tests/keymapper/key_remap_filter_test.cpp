// SPDX-License-Identifier: MIT
#include "keymapper/key_remap_filter.h"

#include "keymapper/key_mapping_preset.h"

#include <gtest/gtest.h>

#include <ostream>

namespace pimloft {

void PrintTo(const KeyEvent &event, std::ostream *out) {
    *out << std::uint16_t(event.key) << std::hex << " 0x" << std::uint64_t(event.flags) << std::dec
         << (event.type == KeyEventType::down ? " down"
             : event.type == KeyEventType::up ? " up"
                                              : " flags");
}

namespace {

using namespace std::chrono_literals;
using enum KeyFlags;

constexpr KeyCode c = Key::c;
constexpr auto editor = "org.example.Editor";
constexpr auto terminal = "com.apple.Terminal";

class Filter : public testing::Test {
protected:
    KeyEvent filter(KeyEvent event, std::string_view app = editor, Instant now = {}) {
        return remap.filter(event, app, now);
    }
    KeyEvent down(KeyCode key, KeyFlags flags, std::string_view app = editor) {
        const KeyEvent pressed = filter({key, flags, KeyEventType::down}, app);
        const KeyEvent released = filter({key, flags, KeyEventType::up}, app);
        EXPECT_EQ(released, (KeyEvent{pressed.key, pressed.flags, KeyEventType::up})) << "no matched pair";
        return pressed;
    }
    static KeyEvent downOf(KeyCode key, KeyFlags flags) { return {key, flags, KeyEventType::down}; }
    KeyEvent rightShift(Instant now) {
        return filter({Key::rightShift, shift, KeyEventType::flagsChanged}, editor, now);
    }

    int panics = 0;
    KeyRemapFilter remap{[this] { ++panics; }};
    const Instant start = Instant() + 1000h;
};

class WindowsMode : public Filter {
protected:
    WindowsMode() { remap.set({}, true); }
};

TEST_F(Filter, passesEverythingBeforeItIsSet) {
    EXPECT_EQ(down(c, control), downOf(c, control));
    EXPECT_EQ(down(Key::home, none), downOf(Key::home, none));
}

TEST_F(WindowsMode, swapsControlAndCommandAndKeepsAllOtherBits) {
    const KeyFlags others = shift | option | function | KeyFlags(0x100) | KeyFlags(1ull << 63);
    EXPECT_EQ(down(c, control), downOf(c, command));
    EXPECT_EQ(down(c, command), downOf(c, control));
    EXPECT_EQ(down(c, control | others), downOf(c, command | others));
    EXPECT_EQ(down(c, command | others), downOf(c, control | others));
}

TEST_F(WindowsMode, leavesAKeyWithBothOrNeitherToTheRules) {
    EXPECT_EQ(down(c, control | command), downOf(c, control | command));
    EXPECT_EQ(down(c, shift), downOf(c, shift));
    remap.set({{.fromKeyCode = c, .toKeyCode = Key::v}}, true);
    EXPECT_EQ(down(c, control | command), downOf(Key::v, control | command));
    EXPECT_EQ(down(c, none), downOf(Key::v, none));
}

TEST_F(WindowsMode, aSwappedKeyMeetsNoRule) {
    remap.set({{.fromKeyCode = c, .toKeyCode = Key::v},
               {.fromKeyCode = c, .fromModifiers = command, .toKeyCode = Key::x}},
              true);
    EXPECT_EQ(down(c, control), downOf(c, command));
    EXPECT_EQ(down(c, command), downOf(c, control));
}

TEST_F(WindowsMode, protectsTheDesktopsCommandShortcuts) {
    for (const KeyCode key : {Key::tab, Key::space, Key::q}) {
        EXPECT_EQ(down(key, command), downOf(key, command));
        EXPECT_EQ(down(key, command | shift), downOf(key, command | shift));
    }
}

TEST_F(WindowsMode, protectedShortcutsGoOnToTheRules) {
    remap.set({{.fromKeyCode = Key::tab, .fromModifiers = command, .toKeyCode = Key::space}}, true);
    EXPECT_EQ(down(Key::tab, command), downOf(Key::space, none));
}

TEST_F(WindowsMode, doesNotProtectTheControlForms) {
    for (const KeyCode key : {Key::tab, Key::space, Key::q})
        EXPECT_EQ(down(key, control), downOf(key, command));
}

TEST_F(WindowsMode, doesNothingInTheFourTerminals) {
    for (const char *app :
         {"com.apple.Terminal", "com.googlecode.iterm2", "net.kovidgoyal.kitty", "com.mitchellh.ghostty"}) {
        EXPECT_EQ(down(c, control, app), downOf(c, control)) << app;
        EXPECT_EQ(down(c, command, app), downOf(c, command)) << app;
    }
    EXPECT_EQ(down(c, control, "com.apple.terminal"), downOf(c, command)) << "another identifier";
    EXPECT_EQ(down(c, control, ""), downOf(c, command)) << "no identifier";
}

TEST_F(WindowsMode, rulesStillApplyInATerminal) {
    remap.set({{.fromKeyCode = c, .toKeyCode = Key::v}}, true);
    EXPECT_EQ(down(c, control, terminal), downOf(Key::v, control));
}

TEST_F(Filter, neverRewritesAFlagsChangedEvent) {
    remap.set({{.fromKeyCode = KeyCode{59}, .toKeyCode = KeyCode{55}},
               {.fromKeyCode = Key::rightShift, .toKeyCode = c}},
              true);
    for (const KeyEvent event : {KeyEvent{KeyCode{59}, control, KeyEventType::flagsChanged},
                                 KeyEvent{KeyCode{55}, command, KeyEventType::flagsChanged},
                                 KeyEvent{Key::rightShift, shift, KeyEventType::flagsChanged}})
        EXPECT_EQ(filter(event), event);
}

TEST_F(Filter, aRuleFiresWhenAllItsModifiersAreHeldAndOthersToo) {
    remap.set({{.fromKeyCode = c, .fromModifiers = shift | option, .toKeyCode = Key::v}}, false);
    EXPECT_EQ(down(c, shift), downOf(c, shift));
    EXPECT_EQ(down(c, shift | option), downOf(Key::v, none));
    EXPECT_EQ(down(c, shift | option | control), downOf(Key::v, control));
}

TEST_F(Filter, aRuleTakesItsOwnModifiersAwayAndAddsTheOthers) {
    remap.set({{.fromKeyCode = c,
                .fromModifiers = shift | control,
                .toKeyCode = Key::v,
                .toModifiers = shift | command}},
              false);
    EXPECT_EQ(down(c, shift | control | option), downOf(Key::v, shift | command | option));
}

TEST_F(Filter, theFirstRuleThatFiresWins) {
    remap.set({{.fromKeyCode = c, .fromModifiers = shift, .toKeyCode = Key::x},
               {.fromKeyCode = c, .toKeyCode = Key::v},
               {.fromKeyCode = c, .fromModifiers = option, .toKeyCode = Key::q}},
              false);
    EXPECT_EQ(down(c, shift).key, Key::x);
    EXPECT_EQ(down(c, none).key, Key::v);
    EXPECT_EQ(down(c, option).key, Key::v);
}

TEST_F(Filter, aRuleIsPassedOverInTheApplicationsThatItExcludes) {
    remap.set(
        {{.fromKeyCode = c, .toKeyCode = Key::x, .excludedApps = {QStringLiteral("com.apple.Terminal")}},
         {.fromKeyCode = c, .toKeyCode = Key::v}},
        false);
    EXPECT_EQ(down(c, none, editor).key, Key::x);
    EXPECT_EQ(down(c, none, terminal).key, Key::v);
    EXPECT_EQ(down(c, none, "").key, Key::x);
}

TEST_F(Filter, shiftHomeMeetsThePlainRuleFirstAndKeepsShift) {
    remap.set(rules(KeyMappingPreset::homeEndFix), false);
    EXPECT_EQ(down(Key::home, shift), downOf(Key::leftArrow, command | shift));
    EXPECT_EQ(down(Key::end, none), downOf(Key::rightArrow, command));
    EXPECT_EQ(down(Key::home, none, terminal), downOf(Key::home, none));
}

TEST_F(Filter, fnDeleteBecomesForwardDeleteWithoutFn) {
    remap.set(rules(KeyMappingPreset::deleteKey), false);
    EXPECT_EQ(down(Key::backspace, function), downOf(Key::forwardDelete, none));
    EXPECT_EQ(down(Key::backspace, function | shift), downOf(Key::forwardDelete, shift));
    EXPECT_EQ(down(Key::backspace, none), downOf(Key::backspace, none));
}

TEST_F(WindowsMode, pressReleasePressOfRightShiftIsEnoughForAPanic) {
    rightShift(start);
    rightShift(start + 100ms);
    EXPECT_EQ(panics, 0);
    rightShift(start + 200ms);
    EXPECT_EQ(panics, 1);
    EXPECT_EQ(remap.rightShiftPressCount(), 0);
}

TEST_F(WindowsMode, theEventThatPanicsIsStillDelivered) {
    rightShift(start);
    rightShift(start);
    EXPECT_EQ(rightShift(start), (KeyEvent{Key::rightShift, shift, KeyEventType::flagsChanged}));
    EXPECT_EQ(panics, 1);
}

TEST_F(WindowsMode, aGapOfExactlyASecondStartsAgainAtOne) {
    rightShift(start);
    rightShift(start + 999ms);
    EXPECT_EQ(remap.rightShiftPressCount(), 2);
    rightShift(start + 1999ms);
    EXPECT_EQ(remap.rightShiftPressCount(), 1);
    EXPECT_EQ(panics, 0);
    EXPECT_EQ(remap.lastRightShiftTime(), start + 1999ms);
}

TEST_F(WindowsMode, gapsJustUnderASecondStillPanic) {
    rightShift(start);
    rightShift(start + 999'999'999ns);
    rightShift(start + 1'999'999'998ns);
    EXPECT_EQ(panics, 1);
}

TEST_F(WindowsMode, otherKeysBetweenDoNotDisturbTheGesture) {
    rightShift(start);
    down(c, control);
    rightShift(start + 1ms);
    filter({KeyCode{56}, shift, KeyEventType::flagsChanged}, editor, start + 2ms);
    EXPECT_EQ(panics, 0) << "left Shift counts for nothing";
    rightShift(start + 3ms);
    EXPECT_EQ(panics, 1);
}

TEST_F(WindowsMode, onlyFlagsChangedEventsOfRightShiftCount) {
    for (int time = 0; time < 5; ++time)
        down(Key::rightShift, shift);
    EXPECT_EQ(remap.rightShiftPressCount(), 0);
    EXPECT_EQ(panics, 0);
}

TEST_F(WindowsMode, aTimeBeforeAnyEventIsNoGap) {
    rightShift(Instant::min());
    EXPECT_EQ(remap.rightShiftPressCount(), 1);
}

TEST_F(WindowsMode, passesEverythingAfterAPanicUntilItIsSetAgain) {
    for (int time = 0; time < 3; ++time)
        rightShift(start);
    EXPECT_EQ(down(c, control), downOf(c, control));
    rightShift(start);
    rightShift(start);
    rightShift(start);
    EXPECT_EQ(panics, 1) << "it is over already";
    remap.set({}, true);
    EXPECT_EQ(down(c, control), downOf(c, command));
}

TEST_F(WindowsMode, whatIsCountedGoesOnWhenItIsSetAgain) {
    rightShift(start);
    rightShift(start + 1ms);
    remap.set({}, false);
    EXPECT_EQ(remap.rightShiftPressCount(), 2);
    EXPECT_EQ(remap.lastRightShiftTime(), start + 1ms);
    remap.set({}, true);
    rightShift(start + 2ms);
    EXPECT_EQ(panics, 1);
}

}  // namespace
}  // namespace pimloft
