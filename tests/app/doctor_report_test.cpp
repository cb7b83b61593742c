// SPDX-License-Identifier: MIT
#include "app/doctor_report.h"

#include "app/hotkey_manager.h"
#include "platform/fake_desktop.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(DoctorReport, listsFindingsInAlignedLines) {
    EXPECT_EQ(doctorReport({{"Session", true, "X11"}, {"Window manager", false, "none"}}).toStdString(),
              "Pimloft 1.0.0 (1)\n"
              "  ok  Session         X11\n"
              "  no  Window manager  none");
}

TEST(DoctorReport, namesTheShortcutsThatOtherProgramsOwn) {
    FakeDesktop desktop;
    const CarbonModifiers modifiers = CarbonModifiers::control | CarbonModifiers::command;
    desktop.hotkeys.take(Key::leftArrow, modifiers);
    HotkeyManager hotkeys(desktop.hotkeys);
    hotkeys.registerHotkey(Key::leftArrow, modifiers, [] {});
    hotkeys.registerHotkey(Key::rightArrow, modifiers, [] {});
    const std::vector<Finding> expected{{"Shortcuts", false, "1 of 2 granted"},
                                        {"Control+Super+Left", false, "belongs to another program"}};
    EXPECT_EQ(doctorFindings(desktop.diagnosis, hotkeys), expected);
}

}  // namespace
}  // namespace pimloft
