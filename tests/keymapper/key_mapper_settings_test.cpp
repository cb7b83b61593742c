// SPDX-License-Identifier: MIT
#include "keymapper/key_mapper_settings.h"

#include "base/regular_file.h"
#include "keymapper/key_mapping_document.h"
#include "keymapper/keyboard_session.h"
#include "keymapper/rule_text.h"
#include "support/full_disk.h"

#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// Rows of the page.
enum Row { windowsMode, homeEndFix, deleteKey, fKeys };

class Settings : public testing::Test {
protected:
    Settings() { testing::internal::CaptureStdout(); }
    ~Settings() override { EXPECT_EQ(testing::internal::GetCapturedStdout(), ""); }

    KeyMapperSettings &page() { return session.page(); }
    bool isOn(Row row) { return page().presetStates()[row].toBool(); }
    /// "Windows Mode 10", or nothing while nothing is pending.
    std::string pending() {
        return page().showConfirmation() ? page().pendingPreset().toStdString() + ' ' +
                                               std::to_string(page().confirmationCountdown())
                                         : std::string();
    }
    void write(const QString &path, const QByteArray &content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void importFile(const QString &path) {
        page().importMappings();
        session.desktop.dialogs.answerPath(path);
    }

    test::KeyboardSession session;
    QTemporaryDir documents;
    const QString chosen = documents.filePath(QStringLiteral("Chosen.json"));
};

TEST_F(Settings, listsThePresetsWithTheirStates) {
    QStringList rows;
    for (const QVariant &each : page().presets()) {
        const auto row = each.value<PresetRow>();
        rows << row.title + QStringLiteral(" | ") + row.icon;
    }
    EXPECT_EQ(rows.join(u'\n').toStdString(), "Windows Mode | arrow.left.arrow.right\n"
                                              "Home/End Fix | arrow.left.to.line\n"
                                              "Delete Key | delete.forward\n"
                                              "F-Keys | function");
    EXPECT_EQ(page().presetStates(), (QVariantList{false, false, false, false}));
}

TEST_F(Settings, followsTheStore) {
    QSignalSpy changed(&page(), &KeyMapperSettings::presetStatesChanged);
    session.store->setPreset(KeyMappingPreset::deleteKey, true);
    EXPECT_TRUE(isOn(deleteKey));
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(Settings, enablingTakesEffectAtOnceAndAsksForConfirmation) {
    page().setPreset(windowsMode, true);
    EXPECT_EQ(session.desktop.log(), "set pimloft.keymapper.preset.Windows Mode = true\ninstall key tap\n");
    EXPECT_EQ(pending(), "Windows Mode 10");
    EXPECT_TRUE(session.timer->isRunning);
    EXPECT_TRUE(session.module->isRemappingActive());
}

TEST_F(Settings, disablingTakesEffectAtOnceAndAsksNothing) {
    page().setPreset(windowsMode, true);
    page().confirmPreset();
    session.desktop.log();
    page().setPreset(windowsMode, false);
    EXPECT_EQ(session.desktop.log(), "set pimloft.keymapper.preset.Windows Mode = false\nremove key tap\n");
    EXPECT_EQ(pending(), "");
}

TEST_F(Settings, eachSecondCountsDownAndTheTenthReverts) {
    page().setPreset(windowsMode, true);
    QSignalSpy changed(&page(), &KeyMapperSettings::confirmationChanged);
    for (int left = 9; left >= 1; --left) {
        session.timer->pass(1);
        EXPECT_EQ(pending(), "Windows Mode " + std::to_string(left));
        EXPECT_TRUE(isOn(windowsMode));
    }
    EXPECT_EQ(changed.count(), 9);
    session.desktop.log();
    session.timer->pass(1);
    EXPECT_EQ(pending(), "");
    EXPECT_FALSE(isOn(windowsMode));
    EXPECT_FALSE(session.timer->isRunning);
    EXPECT_EQ(session.desktop.log(), "set pimloft.keymapper.preset.Windows Mode = false\nremove key tap\n");
}

TEST_F(Settings, revertingRestartsTheEngineWithWhatIsLeft) {
    page().setPreset(homeEndFix, true);
    page().confirmPreset();
    page().setPreset(windowsMode, true);
    session.timer->pass(10);
    EXPECT_TRUE(session.engine->isActive());
    EXPECT_FALSE(session.engine->isWindowsModeEnabled());
    EXPECT_EQ(session.engine->activeMappings().size(), 4u);
}

TEST_F(Settings, keepingLeavesThePresetOn) {
    page().setPreset(windowsMode, true);
    session.timer->pass(9);
    page().confirmPreset();
    EXPECT_EQ(pending(), "");
    EXPECT_FALSE(session.timer->isRunning);
    EXPECT_TRUE(isOn(windowsMode));
    session.timer->pass(20);
    EXPECT_TRUE(isOn(windowsMode));
    EXPECT_TRUE(session.engine->isWindowsModeEnabled());
}

TEST_F(Settings, revertingSwitchesThePresetOffAtOnce) {
    page().setPreset(deleteKey, true);
    page().revertPreset();
    EXPECT_EQ(pending(), "");
    EXPECT_FALSE(isOn(deleteKey));
    EXPECT_FALSE(session.timer->isRunning);
    EXPECT_FALSE(session.engine->isActive());
}

TEST_F(Settings, aSecondPresetTakesThePlaceOfThePendingOneAndLeavesItOn) {
    page().setPreset(windowsMode, true);
    session.timer->pass(4);
    page().setPreset(homeEndFix, true);
    EXPECT_EQ(pending(), "Home/End Fix 10");
    EXPECT_EQ(session.timer->starts, 2) << "a new first second";
    session.timer->pass(10);
    EXPECT_TRUE(isOn(windowsMode)) << "never confirmed and still on";
    EXPECT_FALSE(isOn(homeEndFix));
}

TEST_F(Settings, enablingThePendingPresetAgainStartsTheCountAgain) {
    page().setPreset(windowsMode, true);
    session.timer->pass(7);
    page().setPreset(windowsMode, true);
    EXPECT_EQ(pending(), "Windows Mode 10");
}

TEST_F(Settings, keepingOrRevertingNothingChangesNothing) {
    page().confirmPreset();
    page().revertPreset();
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Settings, thePendingPresetIsRevertedAlsoWhileTheModuleIsOff) {
    page().setPreset(windowsMode, true);
    session.module->setEnabled(false);
    session.timer->pass(10);
    EXPECT_FALSE(isOn(windowsMode));
    EXPECT_FALSE(session.engine->isActive());
}

TEST_F(Settings, aPanicLeavesTheConfirmationRunning) {
    page().setPreset(windowsMode, true);
    session.engine->stop();
    session.notifications.post(panicDisableNotification);
    EXPECT_EQ(pending(), "Windows Mode 10");
    session.timer->pass(10);
    EXPECT_FALSE(isOn(windowsMode));
}

TEST_F(Settings, aPresetThatIsSwitchedOnWhileTheModuleIsOffWaitsToo) {
    session.module->setEnabled(false);
    page().setPreset(windowsMode, true);
    EXPECT_EQ(pending(), "Windows Mode 10");
    EXPECT_FALSE(session.engine->isActive());
}

TEST_F(Settings, removingARuleSavesAndReloads) {
    const KeyMappings rules{{.fromKeyCode = Key::home, .toKeyCode = Key::end},
                            {.fromKeyCode = Key::end, .toKeyCode = Key::home}};
    ASSERT_TRUE(session.store->importMappings(encode(ExportedMappings{{}, rules})));
    session.module->reloadMappings();
    session.desktop.log();
    page().removeCustomMapping(rules[0].id.toString());
    EXPECT_EQ(session.engine->activeMappings(), KeyMappings{rules[1]});
    EXPECT_EQ(readRegularFile(session.folder.filePath(QStringLiteral("key_mappings.json")), 10000),
              encode(KeyMappings{rules[1]}));
    EXPECT_EQ(session.desktop.log(), "remove key tap\ninstall key tap\n");
    page().removeCustomMapping(rules[1].id.toString());
    EXPECT_EQ(page().customMappings()->count(), 0);
    EXPECT_FALSE(session.engine->isActive());
}

TEST_F(Settings, exportsToTheFileThatTheUserChooses) {
    page().exportMappings();
    EXPECT_EQ(session.desktop.log(), "ask where to save Pimloft-KeyMappings.json (application/json)\n");
    EXPECT_TRUE(page().showImportExport());
    session.desktop.dialogs.answerPath(chosen);
    EXPECT_FALSE(page().showImportExport());
    EXPECT_EQ(readRegularFile(chosen, 10000), session.store->exportMappings());
}

TEST_F(Settings, exportsWhatStoodThereWhenTheUserAsked) {
    page().exportMappings();
    const QByteArray before = session.store->exportMappings();
    session.store->setPreset(KeyMappingPreset::fKeys, true);
    session.desktop.dialogs.answerPath(chosen);
    EXPECT_EQ(readRegularFile(chosen, 10000), before);
}

TEST_F(Settings, aCancelledExportWritesNothing) {
    page().exportMappings();
    session.desktop.dialogs.answerPath(std::nullopt);
    EXPECT_FALSE(page().showImportExport());
    EXPECT_FALSE(QFile::exists(chosen));
}

TEST_F(Settings, aFailedExportLeavesTheOldFileAndSaysNothing) {
    write(chosen, "old");
    page().exportMappings();
    session.desktop.log();
    {
        const test::FullDisk full(10);
        session.desktop.dialogs.answerPath(chosen);
    }
    EXPECT_EQ(readRegularFile(chosen, 10000), QByteArray("old"));
    page().exportMappings();
    session.desktop.log();
    session.desktop.dialogs.answerPath(documents.filePath(QStringLiteral("no such folder/file.json")));
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Settings, importsTheChosenFileAndReloads) {
    const KeyMappings rules{{.fromKeyCode = Key::home, .toKeyCode = Key::end}};
    write(chosen, encode(ExportedMappings{{{QStringLiteral("Windows Mode"), true}}, rules}));
    page().importMappings();
    EXPECT_EQ(session.desktop.log(), "ask what to open (application/json)\n");
    session.desktop.dialogs.answerPath(chosen);
    EXPECT_TRUE(isOn(windowsMode));
    EXPECT_EQ(page().customMappings()->count(), 1);
    EXPECT_EQ(session.engine->activeMappings(), rules);
    EXPECT_TRUE(session.engine->isWindowsModeEnabled());
    EXPECT_EQ(pending(), "") << "what is imported needs no confirmation";
}

TEST_F(Settings, aRejectedOrUnreadableImportChangesNothingAndSaysNothing) {
    page().setPreset(homeEndFix, true);
    page().confirmPreset();
    write(chosen, R"({"presetStates":{"Windows Mode":true}})");
    session.desktop.log();
    for (const QString &path : {chosen, documents.filePath(QStringLiteral("none.json")), documents.path(),
                                QStringLiteral("/dev/zero"), QStringLiteral("/dev/null")}) {
        importFile(path);
        EXPECT_EQ(session.desktop.log(), "ask what to open (application/json)\n") << path.toStdString();
        EXPECT_EQ(page().presetStates(), (QVariantList{false, true, false, false}));
    }
}

TEST_F(Settings, aCancelledImportChangesNothing) {
    page().importMappings();
    session.desktop.log();
    session.desktop.dialogs.answerPath(std::nullopt);
    EXPECT_EQ(session.desktop.log(), "");
    EXPECT_FALSE(page().showImportExport());
}

TEST_F(Settings, asksOneQuestionAtATime) {
    page().importMappings();
    session.desktop.log();
    page().importMappings();
    page().exportMappings();
    EXPECT_EQ(session.desktop.log(), "");
    session.desktop.dialogs.answerPath(std::nullopt);
    page().exportMappings();
    EXPECT_NE(session.desktop.log(), "");
    session.desktop.dialogs.answerPath(std::nullopt);
}

class Rows : public testing::Test {
protected:
    void import(const KeyMappings &rules) {
        ASSERT_TRUE(session.store->importMappings(encode(ExportedMappings{{}, rules})));
    }
    std::string rows() {
        QStringList lines;
        for (int row = 0; row < model.rowCount(); ++row)
            lines << model.index(row).data(CustomMappingsModel::fromKeyCodeRole).toString() + u'>' +
                         model.index(row).data(CustomMappingsModel::toKeyCodeRole).toString();
        return lines.join(u' ').toStdString();
    }
    static KeyMapping mapping(int from, int to) {
        return {.fromKeyCode = KeyCode(std::uint16_t(from)), .toKeyCode = KeyCode(std::uint16_t(to))};
    }

    test::KeyboardSession session;
    CustomMappingsModel model{*session.store};
};

TEST_F(Rows, followTheRules) {
    EXPECT_EQ(rows(), "");
    import({mapping(1, 2), mapping(3, 65535)});
    EXPECT_EQ(rows(), "1>2 3>65535");
    EXPECT_EQ(model.count(), 2);
}

TEST_F(Rows, holdNothingBelowThemAndAnswerOnlyTheirRoles) {
    import({mapping(1, 2)});
    EXPECT_EQ(model.rowCount(model.index(0)), 0);
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.data({}, CustomMappingsModel::fromKeyCodeRole).isValid());
}

TEST_F(Rows, keepTheirPlaceWhenOneIsRemoved) {
    const KeyMappings rules{mapping(1, 2), mapping(3, 4), mapping(5, 6)};
    import(rules);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    session.store->removeCustomMapping(rules[1].id);
    EXPECT_EQ(rows(), "1>2 5>6");
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(removed.first()[1].toInt(), 1);
    session.store->removeCustomMapping(rules[2].id);
    EXPECT_EQ(rows(), "1>2");
    session.store->removeCustomMapping(rules[0].id);
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(Rows, areListedAnewWhenMoreChanges) {
    KeyMappings rules{mapping(1, 2), mapping(3, 4), mapping(5, 6)};
    rules[2].id = rules[0].id;
    import(rules);
    session.store->removeCustomMapping(rules[0].id);
    EXPECT_EQ(rows(), "3>4");
    import({mapping(7, 8), mapping(9, 10)});
    EXPECT_EQ(rows(), "7>8 9>10");
    import({mapping(9, 11)});
    EXPECT_EQ(rows(), "9>11") << "one fewer, but not one that was there";
}

}  // namespace
}  // namespace pimloft
