// SPDX-License-Identifier: MIT
#include "windowsnap/window_snap_settings.h"

#include "app/hotkey_manager.h"
#include "app/settings_keys.h"
#include "app/settings_manager.h"
#include "app/shortcut_row.h"
#include "platform/fake_desktop.h"
#include "windowsnap/window_snap_engine.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Settings : testing::Test {
    std::string shortcutLines() {
        QStringList lines;
        for (const QVariant &row : model.shortcuts()) {
            const auto shortcut = row.value<ShortcutRow>();
            lines << (shortcut.keys + u' ' + shortcut.action + u' ' + shortcut.toolTip).trimmed();
            EXPECT_EQ(shortcut.refused, !shortcut.toolTip.isEmpty());
        }
        return lines.join(u'\n').toStdString();
    }

    void registerAll() {
        for (const SnapShortcut &shortcut : snapShortcuts)
            hotkeys.registerHotkey(shortcut.key, snapModifiers, [] {});
    }

    FakeDesktop desktop;
    HotkeyManager hotkeys{desktop.hotkeys};
    SettingsManager settings{desktop.preferences, desktop.loginItem};
    WindowSnapSettings model{settings, hotkeys};
};

TEST_F(Settings, sensitivityIsTenPointsUntilItIsSet) {
    EXPECT_EQ(model.snapSensitivity(), 10.0);
    EXPECT_EQ(model.snapSensitivityText(), QStringLiteral("10px"));
}

TEST_F(Settings, aStoredZeroShowsAsTen) {
    desktop.preferences.stored[SettingsKeys::snapSensitivity] = 0.0;
    EXPECT_EQ(model.snapSensitivity(), 10.0);
    EXPECT_EQ(model.snapSensitivityText(), QStringLiteral("10px"));
}

TEST_F(Settings, theShownValueIsTruncated) {
    desktop.preferences.stored[SettingsKeys::snapSensitivity] = 17.99;
    EXPECT_EQ(model.snapSensitivityText(), QStringLiteral("17px"));
}

TEST_F(Settings, movingTheSliderStoresTheValueAtOnce) {
    QSignalSpy changed(&model, &WindowSnapSettings::snapSensitivityChanged);
    model.setSnapSensitivity(23);
    EXPECT_EQ(desktop.preferences.stored.value(SettingsKeys::snapSensitivity), QVariant(23.0));
    EXPECT_EQ(model.snapSensitivityText(), QStringLiteral("23px"));
    EXPECT_EQ(changed.count(), 1);
    model.setSnapSensitivity(23);
    EXPECT_EQ(changed.count(), 1) << "nothing changed";
}

TEST_F(Settings, listsTheShortcutsWithBothModifiersWrittenAlike) {
    registerAll();
    EXPECT_EQ(shortcutLines(), "^+^+← Snap left 50%\n"
                               "^+^+→ Snap right 50%\n"
                               "^+^+↑ Maximize\n"
                               "^+^+↓ Restore previous size\n"
                               "^+^+1-6 Quick layouts");
}

TEST_F(Settings, saysWhichShortcutsAnotherProgramOwns) {
    desktop.hotkeys.take(Key::rightArrow, snapModifiers);
    desktop.hotkeys.take(Key::digit6, snapModifiers);
    registerAll();
    EXPECT_EQ(shortcutLines(), "^+^+← Snap left 50%\n"
                               "^+^+→ Snap right 50% Another application uses this shortcut.\n"
                               "^+^+↑ Maximize\n"
                               "^+^+↓ Restore previous size\n"
                               "^+^+1-6 Quick layouts Another application uses some of these shortcuts.");
}

TEST_F(Settings, followsRefusalsWhileThePageIsOpen) {
    desktop.hotkeys.take(Key::upArrow, snapModifiers);
    QSignalSpy changed(&model, &WindowSnapSettings::shortcutsChanged);
    registerAll();
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(Settings, listsTheLayoutsWithTheirNumbers) {
    QStringList lines;
    for (const QVariant &row : model.layouts()) {
        const auto layout = row.value<LayoutRow>();
        lines << QStringLiteral("%1 %2 %3").arg(layout.keys, layout.name).arg(layout.fractions.size());
    }
    EXPECT_EQ(lines.join(u'\n').toStdString(), "^+^+1 Half & Half 2\n"
                                               "^+^+2 70/30 2\n"
                                               "^+^+3 30/70 2\n"
                                               "^+^+4 Thirds 3\n"
                                               "^+^+5 Half + Quarters 3\n"
                                               "^+^+6 Quarters 4");
}

TEST_F(Settings, countsALayoutsPlacesFromTheBottom) {
    const auto quarters = model.layouts().last().value<LayoutRow>();
    EXPECT_EQ(quarters.fractions.first().toRectF(), QRectF(0, 0.5, 0.5, 0.5)) << "the top left quarter";
}

}  // namespace
}  // namespace pimloft
