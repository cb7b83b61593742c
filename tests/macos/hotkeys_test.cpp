// SPDX-License-Identifier: MIT
#include "platform/hotkeys/mac_hotkeys.h"

#include "fake_carbon.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

constexpr CarbonModifiers commandShift = CarbonModifiers::command | CarbonModifiers::shift;

class MacHotkeysTest : public MacTest {
protected:
    MacHotkeysTest() {
        hotkeys_->onPressed = [this](HotkeyId id) { pressed_.push_back(std::uint32_t(id)); };
    }

    std::optional<MacHotkeys> hotkeys_{std::in_place};
    std::vector<std::uint32_t> pressed_;
};

TEST_F(MacHotkeysTest, installsOneHandlerForPressesOfHotkeys) {
    EXPECT_EQ(log(), "install handler for keyb 5\n");
}

TEST_F(MacHotkeysTest, removesTheHandlerWhenItGoes) {
    log();
    hotkeys_.reset();
    EXPECT_EQ(log(), "remove handler\n");
    EXPECT_EQ(mac::callWithoutEvent(), mac::hotkeyUnknown);
}

TEST_F(MacHotkeysTest, registersACombinationUnderItsSignatureAndId) {
    log();
    EXPECT_TRUE(hotkeys_->grant(Key::v, commandShift, HotkeyId(1)));
    EXPECT_TRUE(
        hotkeys_->grant(Key::leftArrow, CarbonModifiers::control | CarbonModifiers::command, HotkeyId(7)));
    EXPECT_EQ(log(), "register 9 0x300 as PMLF 1, options 0\n"
                     "register 123 0x1100 as PMLF 7, options 0\n");
}

TEST_F(MacHotkeysTest, refusesWhatAnotherProgramHas) {
    mac::takeHotkey(9, 0x300);
    EXPECT_FALSE(hotkeys_->grant(Key::v, commandShift, HotkeyId(1)));
    EXPECT_EQ(mac::pressHotkey(9, 0x300), mac::hotkeyUnknown);
}

TEST_F(MacHotkeysTest, readsTheIdOfAPressAndReportsIt) {
    ASSERT_TRUE(hotkeys_->grant(Key::v, commandShift, HotkeyId(5)));
    log();
    EXPECT_EQ(mac::pressHotkey(9, 0x300), 0);
    EXPECT_EQ(log(), "read parameter ---- hkid, 8 bytes\n");
    EXPECT_THAT(pressed_, testing::ElementsAre(5));
}

TEST_F(MacHotkeysTest, asksTheSystemOnceForACombinationAndReportsTheNewestId) {
    ASSERT_TRUE(hotkeys_->grant(Key::v, commandShift, HotkeyId(1)));
    ASSERT_TRUE(hotkeys_->grant(Key::x, CarbonModifiers::command, HotkeyId(2)));
    log();
    EXPECT_TRUE(hotkeys_->grant(Key::v, commandShift, HotkeyId(3)));
    EXPECT_EQ(log(), "");
    EXPECT_EQ(mac::pressHotkey(9, 0x300), 0);
    EXPECT_EQ(mac::pressHotkey(7, 0x100), 0);
    EXPECT_THAT(pressed_, testing::ElementsAre(3, 2));
}

TEST_F(MacHotkeysTest, answersThatItHasHandledAPressOfWhatItDoesNotKnow) {
    EXPECT_EQ(mac::pressId(99), 0);
    EXPECT_TRUE(pressed_.empty());
}

TEST_F(MacHotkeysTest, answersNotHandledWithoutAnEvent) {
    EXPECT_EQ(mac::callWithoutEvent(), -9874);
}

TEST_F(MacHotkeysTest, answersTheFailureOfAnEventWithoutAnId) {
    EXPECT_EQ(mac::pressWithoutId(), eventParameterNotFoundErr);
    EXPECT_TRUE(pressed_.empty());
}

}  // namespace

}  // namespace pimloft::test
