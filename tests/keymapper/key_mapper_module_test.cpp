// SPDX-License-Identifier: MIT
#include "keymapper/key_mapper_module.h"

#include "keymapper/key_mapping_document.h"
#include "keymapper/keyboard_session.h"
#include "keymapper/rule_text.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QString enabledKey = QStringLiteral("pimloft.keymapper.enabled");

class Module : public testing::Test {
protected:
    void setPreset(KeyMappingPreset preset, bool on = true) { session.store->setPreset(preset, on); }
    void addRules(const KeyMappings &rules) {
        ASSERT_TRUE(session.store->importMappings(encode(ExportedMappings{{}, rules})));
    }
    void panic() {
        for (int time = 0; time < 3; ++time)
            session.desktop.keyTap.press({Key::rightShift, KeyFlags::shift, KeyEventType::flagsChanged});
        QCoreApplication::processEvents();
    }
    bool swaps() {
        return session.desktop.keyTap.press({Key::c, KeyFlags::control, KeyEventType::down}).flags ==
               KeyFlags::command;
    }
    bool isActive() {
        EXPECT_EQ(module().isRemappingActive(), session.engine->isActive());
        return module().isRemappingActive();
    }
    KeyMapperModule &module() { return *session.module; }

    test::KeyboardSession session;
};

TEST_F(Module, hasItsConstants) {
    EXPECT_EQ(module().id(), QStringLiteral("keymapper"));
    EXPECT_EQ(module().name(), QStringLiteral("KeyMapper"));
    EXPECT_EQ(module().icon(), QStringLiteral("keyboard"));
    EXPECT_EQ(module().description(), QStringLiteral("One-click Ctrl/Cmd swap, Windows key behavior"));
    EXPECT_TRUE(module().requiresAccessibility());
}

TEST_F(Module, startsNothingByBeingMade) {
    setPreset(KeyMappingPreset::windowsMode);
    session.open();
    EXPECT_FALSE(isActive());
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Module, isEnabledUntilTheUserSwitchesItOff) {
    EXPECT_TRUE(module().isEnabled());
    session.desktop.preferences.stored[enabledKey] = false;
    session.open();
    EXPECT_FALSE(module().isEnabled());
}

TEST_F(Module, activatesWhatTheStoreHolds) {
    setPreset(KeyMappingPreset::windowsMode);
    module().activate();
    EXPECT_TRUE(isActive());
    EXPECT_TRUE(swaps());
}

TEST_F(Module, isInactiveWithNothingToRemap) {
    module().activate();
    EXPECT_FALSE(isActive());
}

TEST_F(Module, activatesNothingWithoutThePermission) {
    session.desktop.windows.trusted = false;
    session.accessibility.refresh();
    setPreset(KeyMappingPreset::windowsMode);
    session.desktop.log();
    module().activate();
    EXPECT_FALSE(isActive());
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Module, activatesNothingWhileItIsDisabled) {
    setPreset(KeyMappingPreset::windowsMode);
    module().setEnabled(false);
    module().activate();
    EXPECT_FALSE(isActive());
}

TEST_F(Module, followsItsSwitchAndStoresIt) {
    setPreset(KeyMappingPreset::windowsMode);
    module().activate();
    session.desktop.log();
    module().setEnabled(false);
    EXPECT_FALSE(isActive());
    EXPECT_EQ(session.desktop.log(), "set pimloft.keymapper.enabled = false\nremove key tap\n");
    module().setEnabled(true);
    EXPECT_TRUE(isActive());
    EXPECT_EQ(session.desktop.log(), "set pimloft.keymapper.enabled = true\ninstall key tap\n");
}

TEST_F(Module, canBeDeactivatedWhenItIsNotActive) {
    module().deactivate();
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Module, reloadsNothingWhileItIsDisabled) {
    module().setEnabled(false);
    setPreset(KeyMappingPreset::windowsMode);
    session.desktop.log();
    module().reloadMappings();
    EXPECT_FALSE(isActive());
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Module, buildsThePresetsRulesBeforeTheUsersOwn) {
    const KeyMapping own{.fromKeyCode = Key::home, .toKeyCode = Key::end};
    addRules({own});
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        setPreset(preset);
    module().reloadMappings();
    EXPECT_EQ(test::ruleText(session.engine->activeMappings()),
              test::ruleText(rules(KeyMappingPreset::homeEndFix)) +
                  test::ruleText(rules(KeyMappingPreset::deleteKey)) + test::ruleText({own}));
    EXPECT_TRUE(session.engine->isWindowsModeEnabled());
}

TEST_F(Module, fKeysChangesNoKey) {
    setPreset(KeyMappingPreset::fKeys);
    module().reloadMappings();
    EXPECT_FALSE(isActive());
    EXPECT_TRUE(session.engine->activeMappings().empty());
}

TEST_F(Module, isInactiveWhereTheTapIsRefused) {
    session.desktop.keyTap.refuses = true;
    setPreset(KeyMappingPreset::windowsMode);
    testing::internal::CaptureStdout();
    module().activate();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "KeyRemapEngine: Failed to create event tap\n");
    EXPECT_FALSE(isActive());
}

TEST_F(Module, aPanicStopsItAndTellsTheUser) {
    setPreset(KeyMappingPreset::windowsMode);
    module().activate();
    session.desktop.log();
    QSignalSpy changed(&module(), &KeyMapperModule::isRemappingActiveChanged);
    panic();
    EXPECT_FALSE(isActive());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(session.desktop.log(),
              "remove key tap\n"
              "alert: Key Remapping Disabled | All key remapping has been disabled via the panic hotkey "
              "(triple Right Shift). Re-enable in Pimloft settings. | [OK]\n");
}

TEST_F(Module, aPanicLeavesTheSwitchesAndTheNextReloadStartsAgain) {
    setPreset(KeyMappingPreset::windowsMode);
    module().activate();
    panic();
    session.desktop.dialogs.closeAlert();
    EXPECT_TRUE(module().isEnabled());
    EXPECT_TRUE(session.store->isOn(KeyMappingPreset::windowsMode));
    EXPECT_FALSE(swaps());
    session.page().setPreset(3, true);
    EXPECT_TRUE(isActive());
    EXPECT_TRUE(swaps());
}

TEST_F(Module, hearsOfAPanicFromItsMakingOn) {
    module().setEnabled(false);
    session.desktop.log();
    session.notifications.post(panicDisableNotification);
    EXPECT_NE(session.desktop.log().find("Key Remapping Disabled"), std::string::npos);
}

TEST_F(Module, hearsNothingAfterItsEnd) {
    session.module.reset();
    session.notifications.post(panicDisableNotification);
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Module, namesItsPageAndWhatItShows) {
    const auto page = module().settingsView();
    ASSERT_TRUE(page);
    EXPECT_EQ(page->source, QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/KeyMapper/KeyMapperSettings.qml")));
    EXPECT_EQ(page->properties[QStringLiteral("settings")].value<QObject *>(), &session.page());
}

}  // namespace
}  // namespace pimloft
