// SPDX-License-Identifier: MIT
#include "app/settings_manager.h"

#include "app/settings_keys.h"
#include "platform/fake_desktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Settings : testing::Test {
    Settings() { desktop.log(); }

    FakeDesktop desktop;
    SettingsManager manager{desktop.preferences, desktop.loginItem};
};

TEST_F(Settings, registersTheTenDefaultsAndStoresNone) {
    EXPECT_EQ(desktop.preferences.registered,
              (QVariantMap{{QStringLiteral("pimloft.general.hasCompletedOnboarding"), false},
                           {QStringLiteral("pimloft.general.launchAtLogin"), false},
                           {QStringLiteral("pimloft.general.showInDock"), false},
                           {QStringLiteral("pimloft.windowsnap.enabled"), true},
                           {QStringLiteral("pimloft.clipboardplus.enabled"), true},
                           {QStringLiteral("pimloft.finderfix.enabled"), true},
                           {QStringLiteral("pimloft.keymapper.enabled"), true},
                           {QStringLiteral("pimloft.quickvolume.enabled"), true},
                           {QStringLiteral("pimloft.windowsnap.snapSensitivity"), 10.0},
                           {QStringLiteral("pimloft.clipboardplus.maxItems"), 50}}));
    EXPECT_TRUE(desktop.preferences.stored.isEmpty());
}

TEST_F(Settings, onACleanSystemReadAsTheirDefaults) {
    for (const char *id : {"windowsnap", "clipboardplus", "finderfix", "keymapper", "quickvolume"})
        EXPECT_TRUE(manager.isModuleEnabled(QString::fromLatin1(id))) << id;
    EXPECT_EQ(manager.defaults().number(SettingsKeys::snapSensitivity), 10.0);
    EXPECT_EQ(manager.defaults().integer(SettingsKeys::clipboardMaxItems), 50);
    EXPECT_FALSE(manager.defaults().flag(SettingsKeys::hasCompletedOnboarding));
    EXPECT_EQ(manager.defaults().text(SettingsKeys::lastSeenVersion), QString());
    EXPECT_FALSE(manager.launchAtLogin());
}

TEST_F(Settings, aModuleThatNothingIsKnownOfIsEnabled) {
    EXPECT_TRUE(manager.isModuleEnabled(QStringLiteral("other")));
}

TEST_F(Settings, storeAModulesFlagUnderItsKey) {
    manager.setModuleEnabled(QStringLiteral("finderfix"), false);
    manager.setModuleEnabled(QStringLiteral("other"), false);
    EXPECT_EQ(desktop.log(), "set pimloft.finderfix.enabled = false\n"
                             "set pimloft.other.enabled = false\n");
    EXPECT_FALSE(manager.isModuleEnabled(QStringLiteral("finderfix")));
    EXPECT_FALSE(manager.isModuleEnabled(QStringLiteral("other")));
}

TEST_F(Settings, aPresetThatWasNeverWrittenIsOff) {
    EXPECT_FALSE(manager.defaults().flag(SettingsKeys::keymapperPreset + QStringLiteral("any")));
}

TEST_F(Settings, launchAtLoginIsStoredAndThenCarriedOut) {
    QSignalSpy changed(&manager, &SettingsManager::launchAtLoginChanged);
    manager.setLaunchAtLogin(true);
    EXPECT_EQ(desktop.log(), "set pimloft.general.launchAtLogin = true\nregister login item\n");
    EXPECT_TRUE(manager.launchAtLogin());
    manager.setLaunchAtLogin(false);
    EXPECT_EQ(desktop.log(), "set pimloft.general.launchAtLogin = false\nunregister login item\n");
    EXPECT_FALSE(manager.launchAtLogin());
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(Settings, aRefusedLoginItemIsReportedAndTheWishStays) {
    desktop.loginItem.refusal = QStringLiteral("Read-only file system");
    testing::internal::CaptureStdout();
    manager.setLaunchAtLogin(true);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Failed to update launch at login: Read-only file system\n");
    EXPECT_TRUE(manager.launchAtLogin());
}

TEST_F(Settings, askingForLaunchAtLoginAgainTriesAgainWithoutAChange) {
    manager.setLaunchAtLogin(true);
    desktop.log();
    QSignalSpy changed(&manager, &SettingsManager::launchAtLoginChanged);
    manager.setLaunchAtLogin(true);
    EXPECT_EQ(desktop.log(), "set pimloft.general.launchAtLogin = true\nregister login item\n");
    EXPECT_EQ(changed.count(), 0);
}

}  // namespace
}  // namespace pimloft
