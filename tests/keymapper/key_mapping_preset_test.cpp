// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_preset.h"

#include "keymapper/rule_text.h"

#include <QSet>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(KeyMappingPreset, isListedWithItsNameSymbolAndDescription) {
    QStringList rows;
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        rows << QStringList{rawValue(preset), icon(preset), description(preset)}.join(QStringLiteral(" | "));
    EXPECT_EQ(rows.join(u'\n').toStdString(),
              "Windows Mode | arrow.left.arrow.right | "
              "Swap Ctrl and Cmd for all shortcuts (Ctrl+C copies, etc.)\n"
              "Home/End Fix | arrow.left.to.line | Home/End go to beginning/end of line, not document\n"
              "Delete Key | delete.forward | Fn+Delete works as forward-delete consistently\n"
              "F-Keys | function | F1-F12 as function keys by default (not media keys)");
}

TEST(KeyMappingPreset, isKeptUnderAKeyThatEndsInItsRawValue) {
    QStringList keys;
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        keys << settingsKey(preset);
    EXPECT_EQ(keys.join(u'\n').toStdString(), "pimloft.keymapper.preset.Windows Mode\n"
                                              "pimloft.keymapper.preset.Home/End Fix\n"
                                              "pimloft.keymapper.preset.Delete Key\n"
                                              "pimloft.keymapper.preset.F-Keys");
}

TEST(KeyMappingPreset, isFoundByItsExactNameOnly) {
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        EXPECT_EQ(presetOfRawValue(rawValue(preset)), preset);
    for (const char *other : {"", "windows mode", "Windows Mode ", "windowsMode", "Home\\/End Fix"})
        EXPECT_EQ(presetOfRawValue(QString::fromLatin1(other)), std::nullopt) << other;
}

TEST(KeyMappingPreset, homeEndFixHasFourRulesInThisOrder) {
    EXPECT_EQ(test::ruleText(rules(KeyMappingPreset::homeEndFix)),
              "115 0x0 -> 123 0x100000 except com.apple.Terminal, com.googlecode.iterm2\n"
              "119 0x0 -> 124 0x100000 except com.apple.Terminal, com.googlecode.iterm2\n"
              "115 0x20000 -> 123 0x120000 except com.apple.Terminal, com.googlecode.iterm2\n"
              "119 0x20000 -> 124 0x120000 except com.apple.Terminal, com.googlecode.iterm2\n");
}

TEST(KeyMappingPreset, deleteKeyHasOneRule) {
    EXPECT_EQ(test::ruleText(rules(KeyMappingPreset::deleteKey)), "51 0x800000 -> 117 0x0\n");
}

TEST(KeyMappingPreset, windowsModeAndFKeysContributeNoRule) {
    EXPECT_TRUE(rules(KeyMappingPreset::windowsMode).empty());
    EXPECT_TRUE(rules(KeyMappingPreset::fKeys).empty());
}

TEST(KeyMappingPreset, rulesGetANewIdentityEachTime) {
    QSet<QUuid> ids;
    for (int time = 0; time < 3; ++time)
        for (const KeyMapping &rule : rules(KeyMappingPreset::homeEndFix))
            ids << rule.id;
    EXPECT_EQ(ids.size(), 12);
}

TEST(KeyMapping, equalsAnotherFieldByField) {
    const KeyMapping one{QUuid::createUuid(), Key::home, KeyFlags::shift, Key::end, KeyFlags::command, {}};
    KeyMapping other = one;
    EXPECT_EQ(one, other);
    other.excludedApps << QStringLiteral("org.example.App");
    EXPECT_NE(one, other);
    other = one;
    other.id = QUuid::createUuid();
    EXPECT_NE(one, other);
}

}  // namespace
}  // namespace pimloft
