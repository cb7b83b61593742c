// SPDX-License-Identifier: MIT
#include "app/hotkey_manager.h"

#include "platform/fake_desktop.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr auto commandShift = CarbonModifiers::command | CarbonModifiers::shift;

struct Hotkeys : testing::Test {
    /// Registers a combination that writes `name` into `ran`.
    std::uint32_t add(KeyCode key, const char *name) {
        return manager->registerHotkey(key, commandShift, [this, name] { ran += name; });
    }
    void press(KeyCode key) {
        desktop.hotkeys.press(key, commandShift);
        QCoreApplication::processEvents();
    }

    FakeDesktop desktop;
    std::unique_ptr<HotkeyManager> manager = std::make_unique<HotkeyManager>(desktop.hotkeys);
    std::string ran;
};

TEST_F(Hotkeys, idsCountFromOne) {
    EXPECT_EQ(add(Key::v, "v"), 1u);
    EXPECT_EQ(add(Key::x, "x"), 2u);
    EXPECT_EQ(desktop.log(), "grant key 9 with modifiers 0x300 as 1\n"
                             "grant key 7 with modifiers 0x300 as 2\n");
}

TEST_F(Hotkeys, idsAreNeverUsedAgain) {
    manager->unregister(add(Key::v, "v"));
    EXPECT_EQ(add(Key::v, "v"), 2u);
}

TEST_F(Hotkeys, aPressRunsItsActionOnly) {
    add(Key::v, "v");
    add(Key::x, "x");
    press(Key::x);
    EXPECT_EQ(ran, "x");
}

TEST_F(Hotkeys, actionsRunAfterTheKeyEventAndInOrder) {
    add(Key::v, "v");
    add(Key::x, "x");
    desktop.hotkeys.press(Key::v, commandShift);
    desktop.hotkeys.press(Key::x, commandShift);
    desktop.hotkeys.press(Key::v, commandShift);
    EXPECT_EQ(ran, "");
    QCoreApplication::processEvents();
    EXPECT_EQ(ran, "vxv");
}

TEST_F(Hotkeys, aRefusedRegistrationUsesUpItsIdAndPressingItDoesNothing) {
    desktop.hotkeys.take(Key::v, commandShift);
    EXPECT_EQ(add(Key::v, "v"), 1u);
    EXPECT_EQ(add(Key::x, "x"), 2u);
    press(Key::v);
    EXPECT_EQ(ran, "");
}

TEST_F(Hotkeys, anUnregisteredActionDoesNotRun) {
    manager->unregister(add(Key::v, "v"));
    press(Key::v);
    EXPECT_EQ(ran, "");
}

TEST_F(Hotkeys, unregisteringLeavesTheCombinationOurs) {
    const std::uint32_t id = add(Key::v, "v");
    desktop.log();
    manager->unregister(id);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Hotkeys, aCombinationRegisteredAgainRunsItsNewAction) {
    manager->unregister(add(Key::v, "old"));
    add(Key::v, "new");
    press(Key::v);
    EXPECT_EQ(ran, "new");
}

TEST_F(Hotkeys, ofTwoRegistrationsOfACombinationTheNewestRuns) {
    add(Key::v, "old");
    const std::uint32_t newest = add(Key::v, "new");
    press(Key::v);
    EXPECT_EQ(ran, "new");
    manager->unregister(newest);
    press(Key::v);
    EXPECT_EQ(ran, "new") << "the older one does not come back";
}

TEST_F(Hotkeys, unknownIdsAreIgnored) {
    const std::uint32_t id = add(Key::v, "v");
    manager->unregister(0);
    manager->unregister(99);
    manager->unregister(id);
    manager->unregister(id);
    EXPECT_EQ(add(Key::x, "x"), 2u);
}

TEST_F(Hotkeys, anActionMayUnregisterItself) {
    std::uint32_t id = 0;
    id = manager->registerHotkey(Key::v, commandShift, [&] {
        manager->unregister(id);
        ran += "once";
    });
    press(Key::v);
    press(Key::v);
    EXPECT_EQ(ran, "once");
}

TEST_F(Hotkeys, nothingRunsAfterTheManagerIsGone) {
    add(Key::v, "v");
    desktop.hotkeys.press(Key::v, commandShift);
    manager.reset();
    QCoreApplication::processEvents();
    press(Key::v);
    EXPECT_EQ(ran, "");
}

TEST_F(Hotkeys, knowsWhichCombinationsAreRefused) {
    desktop.hotkeys.take(Key::v, commandShift);
    EXPECT_FALSE(manager->isRefused(Key::v, commandShift)) << "nobody has asked yet";
    QSignalSpy changed(manager.get(), &HotkeyManager::refusedChanged);
    add(Key::v, "v");
    add(Key::v, "v");
    add(Key::x, "x");
    EXPECT_TRUE(manager->isRefused(Key::v, commandShift));
    EXPECT_FALSE(manager->isRefused(Key::v, CarbonModifiers::command));
    EXPECT_FALSE(manager->isRefused(Key::x, commandShift));
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(Hotkeys, aCombinationThatBecomesFreeIsNoLongerRefused) {
    desktop.hotkeys.take(Key::v, commandShift);
    add(Key::v, "v");
    desktop.hotkeys.release(Key::v, commandShift);
    QSignalSpy changed(manager.get(), &HotkeyManager::refusedChanged);
    add(Key::v, "v");
    EXPECT_FALSE(manager->isRefused(Key::v, commandShift));
    EXPECT_EQ(changed.count(), 1);
}

}  // namespace
}  // namespace pimloft
