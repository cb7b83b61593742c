// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_settings.h"

#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_keys.h"
#include "app/settings_manager.h"
#include "app/shortcut_row.h"
#include "clipboard/clipboard_shortcuts.h"
#include "history.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Settings : testing::Test {
    Settings() { desktop.log(); }
    std::string apps() const { return page.excludedApps().join(QStringLiteral(", ")).toStdString(); }

    test::History history;
    FakeDesktop &desktop = history.desktop;
    SystemClock clock;
    Process process{desktop.platform(), clock, {}};
    ClipboardSettings page{SettingsManager::shared(), history.store, HotkeyManager::shared()};
};

TEST_F(Settings, aLimitThatWasNeverSetAndAZeroShowAs50) {
    EXPECT_EQ(page.maxItemsText(), QStringLiteral("Max items: 50"));
    desktop.preferences.stored[SettingsKeys::clipboardMaxItems] = 0;
    EXPECT_EQ(page.maxItems(), 50);
}

TEST_F(Settings, theLimitIsStored) {
    QSignalSpy changed(&page, &ClipboardSettings::maxItemsChanged);
    page.setMaxItems(60);
    page.setMaxItems(60);
    EXPECT_EQ(desktop.log(), "set pimloft.clipboardplus.maxItems = 60\n");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(page.maxItemsText(), QStringLiteral("Max items: 60"));
}

TEST_F(Settings, aSmallerLimitTrimsOnlyWithTheNextCopy) {
    for (int each = 0; each < 15; ++each)
        history.store.add(test::text(QByteArray::number(each).constData()));
    page.setMaxItems(10);
    EXPECT_EQ(page.currentItemsText(), QStringLiteral("Current items: 15"));
    history.store.add(test::text("one more"));
    EXPECT_EQ(page.currentItemsText(), QStringLiteral("Current items: 10"));
}

TEST_F(Settings, theCountsFollowTheHistory) {
    QSignalSpy changed(&page, &ClipboardSettings::countsChanged);
    history.hold({test::text("c"), test::pinned(test::text("b")), test::text("a")});
    EXPECT_GE(changed.size(), 3);
    EXPECT_EQ(page.currentItemsText(), QStringLiteral("Current items: 3"));
    EXPECT_EQ(page.pinnedItemsText(), QStringLiteral("Pinned items: 1"));
    page.clearUnpinned();
    EXPECT_EQ(page.currentItemsText(), QStringLiteral("Current items: 1"));
}

TEST_F(Settings, threePasswordManagersAreExcludedUntilTheUserSaysOtherwise) {
    EXPECT_EQ(apps(), "1Password, Bitwarden, LastPass");
}

TEST_F(Settings, anEmptiedListIsStoredAndIsNotTheDefault) {
    for (int each = 0; each < 3; ++each)
        page.removeExcludedApp(0);
    EXPECT_EQ(desktop.preferences.texts(SettingsKeys::clipboardExcludedApps), QStringList());
    EXPECT_EQ(apps(), "");
}

TEST_F(Settings, oneAppIsTakenOutOfTheList) {
    page.removeExcludedApp(1);
    EXPECT_EQ(apps(), "1Password, LastPass");
    page.removeExcludedApp(9);
    page.removeExcludedApp(-1);
    EXPECT_EQ(apps(), "1Password, LastPass");
}

TEST_F(Settings, anAppIsAddedAtTheEndAndTheFieldEmptied) {
    page.setNewExcludedApp(QStringLiteral("Keychain"));
    page.addExcludedApp();
    EXPECT_EQ(apps(), "1Password, Bitwarden, LastPass, Keychain");
    EXPECT_EQ(page.newExcludedApp(), QString());
}

TEST_F(Settings, theNameInTheFieldIsToldOnlyWhenItChanges) {
    QSignalSpy changed(&page, &ClipboardSettings::newExcludedAppChanged);
    page.setNewExcludedApp(QStringLiteral("Keychain"));
    page.setNewExcludedApp(QStringLiteral("Keychain"));
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Settings, blanksAroundANameAreDroppedAndNothingElseIsAdded) {
    EXPECT_FALSE(page.canAdd());
    page.setNewExcludedApp(QStringLiteral("   "));
    EXPECT_FALSE(page.canAdd());
    page.addExcludedApp();
    EXPECT_EQ(apps(), "1Password, Bitwarden, LastPass");
    page.setNewExcludedApp(QStringLiteral(" Key chain "));
    EXPECT_TRUE(page.canAdd());
    page.addExcludedApp();
    EXPECT_EQ(page.excludedApps().last(), QStringLiteral("Key chain"));
}

TEST_F(Settings, theShortcutsAreTheseInThisOrder) {
    QStringList rows;
    for (const QVariant &row : page.shortcuts())
        rows << row.value<ShortcutRow>().keys + QStringLiteral(": ") + row.value<ShortcutRow>().action;
    EXPECT_EQ(rows.join(QLatin1Char('\n')).toStdString(), "Cmd+Shift+V: Open clipboard history\n"
                                                          "Cmd+Shift+Ctrl+V: Paste as plain text\n"
                                                          "Enter / Click: Paste selected item\n"
                                                          "Delete: Remove selected item\n"
                                                          "Escape: Dismiss popup");
}

TEST_F(Settings, aShortcutThatAnotherProgramOwnsSaysSo) {
    QSignalSpy changed(&page, &ClipboardSettings::shortcutsChanged);
    desktop.hotkeys.take(popupShortcut.key, popupShortcut.modifiers);
    HotkeyManager::shared().registerHotkey(popupShortcut.key, popupShortcut.modifiers, [] {});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(page.shortcuts().at(0).value<ShortcutRow>().toolTip,
              QStringLiteral("Another application uses this shortcut."));
    EXPECT_FALSE(page.shortcuts().at(1).value<ShortcutRow>().refused);
    EXPECT_FALSE(page.shortcuts().at(2).value<ShortcutRow>().refused);
}

}  // namespace
}  // namespace pimloft
