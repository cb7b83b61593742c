// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_store.h"

#include "base/atomic_file.h"
#include "keymapper/key_mapping_document.h"
#include "keymapper/rule_text.h"
#include "platform/fake_desktop.h"
#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace pimloft {
namespace {

KeyMapping mapping(int from, int to) {
    return {.fromKeyCode = KeyCode(std::uint16_t(from)), .toKeyCode = KeyCode(std::uint16_t(to))};
}

class Store : public testing::Test {
protected:
    Store() { testing::internal::CaptureStdout(); }
    ~Store() override { EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "no failure is printed"; }

    KeyMappingStore &store() {
        if (!store_)
            store_.emplace(desktop.preferences, folder);
        return *store_;
    }
    /// As the next run of the program finds it.
    KeyMappingStore &reopened() {
        store_.emplace(desktop.preferences, folder);
        return *store_;
    }
    void leaveFile(const QByteArray &content) { ASSERT_FALSE(writeAtomically(path, content)); }
    QByteArray fileContent() {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    std::string states() {
        QStringList on;
        for (const auto &[preset, isOn] : store().presetStates())
            if (isOn)
                on << rawValue(preset);
        return on.join(QStringLiteral(", ")).toStdString();
    }
    /// A document that switches these presets and brings these rules.
    static QByteArray document(std::vector<std::pair<QString, bool>> presets, KeyMappings rules) {
        return encode(ExportedMappings{std::move(presets), std::move(rules)});
    }

    QTemporaryDir home;
    QString folder = home.filePath(QStringLiteral("data/Pimloft"));
    QString path = folder + QStringLiteral("/key_mappings.json");
    FakeDesktop desktop;

private:
    std::optional<KeyMappingStore> store_;
};

TEST_F(Store, startsWithAllPresetsOffAndNoRuleAndWritesNoFile) {
    EXPECT_EQ(store().presetStates().size(), 4u);
    EXPECT_EQ(states(), "");
    EXPECT_TRUE(store().customMappings().empty());
    EXPECT_TRUE(QDir(folder).exists());
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Store, readsThePresetsThatAreOn) {
    desktop.preferences.stored[QStringLiteral("pimloft.keymapper.preset.Home/End Fix")] = true;
    desktop.preferences.stored[QStringLiteral("pimloft.keymapper.preset.F-Keys")] = true;
    EXPECT_EQ(states(), "Home/End Fix, F-Keys");
}

TEST_F(Store, storesAPresetAtOnceAndTells) {
    QSignalSpy changed(&store(), &KeyMappingStore::presetStatesChanged);
    store().setPreset(KeyMappingPreset::homeEndFix, true);
    EXPECT_EQ(desktop.log(), "set pimloft.keymapper.preset.Home/End Fix = true\n");
    EXPECT_EQ(states(), "Home/End Fix");
    store().setPreset(KeyMappingPreset::homeEndFix, false);
    EXPECT_EQ(desktop.log(), "set pimloft.keymapper.preset.Home/End Fix = false\n");
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(Store, readsItsRulesInTheirOrder) {
    const KeyMappings rules{mapping(1, 2), mapping(3, 4), mapping(1, 5)};
    leaveFile(encode(rules));
    EXPECT_EQ(store().customMappings(), rules);
}

TEST_F(Store, startsWithoutRulesWhenTheFileIsDamagedAndLeavesItAsItIs) {
    for (const char *damaged : {"", "[{", "{}", "[{\"id\":1}]", "\xFF"}) {
        leaveFile(damaged);
        EXPECT_TRUE(reopened().customMappings().empty());
        EXPECT_EQ(fileContent(), damaged);
    }
}

TEST_F(Store, overwritesADamagedFileWithTheNextSave) {
    leaveFile("damaged");
    store().saveCustomMappings();
    EXPECT_EQ(fileContent(), "[]");
}

TEST_F(Store, readsNothingButAFile) {
    ASSERT_TRUE(makePrivateFolder(folder));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_TRUE(store().customMappings().empty());
}

TEST_F(Store, writesPrivateFiles) {
    ASSERT_TRUE(store().importMappings(document({}, {mapping(1, 2)})));
    struct stat file {};
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &file), 0);
    EXPECT_EQ(file.st_mode & 0777, 0600u);
    ASSERT_EQ(stat(QFile::encodeName(folder).constData(), &file), 0);
    EXPECT_EQ(file.st_mode & 0777, 0700u);
}

TEST_F(Store, removesEveryRuleOfAnIdentityAndSaves) {
    KeyMappings rules{mapping(1, 2), mapping(3, 4), mapping(5, 6)};
    rules[2].id = rules[0].id;
    leaveFile(encode(rules));
    QSignalSpy changed(&store(), &KeyMappingStore::customMappingsChanged);
    store().removeCustomMapping(rules[0].id);
    EXPECT_EQ(store().customMappings(), KeyMappings{rules[1]});
    EXPECT_EQ(fileContent(), encode(KeyMappings{rules[1]}));
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(Store, removingAnUnknownRuleChangesNothing) {
    leaveFile(encode(KeyMappings{mapping(1, 2)}));
    QSignalSpy changed(&store(), &KeyMappingStore::customMappingsChanged);
    store().removeCustomMapping(QUuid::createUuid());
    EXPECT_EQ(store().customMappings().size(), 1u);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(Store, keepsItsRulesInMemoryWhenTheyCannotBeSaved) {
    ASSERT_TRUE(store().importMappings(document({}, {mapping(1, 2), mapping(3, 4)})));
    const QByteArray before = fileContent();
    const test::FullDisk full(10);
    store().removeCustomMapping(store().customMappings()[0].id);
    EXPECT_EQ(store().customMappings().size(), 1u);
    EXPECT_EQ(fileContent(), before) << "torn";
}

TEST_F(Store, goesOnWithoutAFolder) {
    QFile inTheWay(home.filePath(QStringLiteral("data")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_TRUE(store().importMappings(document({}, {mapping(1, 2)})));
    EXPECT_EQ(store().customMappings().size(), 1u);
    EXPECT_TRUE(reopened().customMappings().empty());
}

TEST_F(Store, exportsEveryPresetAndAllRules) {
    const KeyMappings rules{mapping(1, 2)};
    leaveFile(encode(rules));
    store().setPreset(KeyMappingPreset::deleteKey, true);
    EXPECT_EQ(
        store().exportMappings(),
        R"({"presetStates":{"Windows Mode":false,"Home/End Fix":false,"Delete Key":true,"F-Keys":false},)"
        R"("customMappings":)" +
            encode(rules) + '}');
}

TEST_F(Store, exportingTouchesNoFile) {
    EXPECT_FALSE(store().exportMappings().isEmpty());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Store, importsWhatItExports) {
    store().setPreset(KeyMappingPreset::windowsMode, true);
    ASSERT_TRUE(store().importMappings(document({}, {mapping(1, 2), mapping(3, 4)})));
    const QByteArray exported = store().exportMappings();
    QTemporaryDir elsewhere;
    FakeDesktop otherDesktop;
    KeyMappingStore other(otherDesktop.preferences, elsewhere.path());
    ASSERT_TRUE(other.importMappings(exported));
    EXPECT_EQ(other.presetStates(), store().presetStates());
    EXPECT_EQ(other.customMappings(), store().customMappings());
}

TEST_F(Store, importingSwitchesThePresetsThatItKnowsAndLeavesTheOthers) {
    store().setPreset(KeyMappingPreset::deleteKey, true);
    store().setPreset(KeyMappingPreset::fKeys, true);
    desktop.log();
    EXPECT_TRUE(store().importMappings(document({{QStringLiteral("Windows Mode"), true},
                                                 {QStringLiteral("Nobody Knows"), true},
                                                 {QStringLiteral("F-Keys"), false}},
                                                {})));
    EXPECT_EQ(states(), "Windows Mode, Delete Key");
    EXPECT_EQ(desktop.log(), "set pimloft.keymapper.preset.Windows Mode = true\n"
                             "set pimloft.keymapper.preset.F-Keys = false\n");
}

TEST_F(Store, importingReplacesAllRulesAlsoByNone) {
    leaveFile(encode(KeyMappings{mapping(1, 2)}));
    const KeyMappings imported{mapping(3, 4), mapping(5, 6)};
    EXPECT_TRUE(store().importMappings(document({}, imported)));
    EXPECT_EQ(store().customMappings(), imported);
    EXPECT_EQ(fileContent(), encode(imported));
    EXPECT_TRUE(store().importMappings(document({}, {})));
    EXPECT_TRUE(store().customMappings().empty());
    EXPECT_EQ(fileContent(), "[]");
}

TEST_F(Store, importingTellsOnceOfThePresetsAndOnceOfTheRules) {
    QSignalSpy presets(&store(), &KeyMappingStore::presetStatesChanged);
    QSignalSpy rules(&store(), &KeyMappingStore::customMappingsChanged);
    store().importMappings(document(
        {{QStringLiteral("Windows Mode"), true}, {QStringLiteral("Home/End Fix"), true}}, {mapping(1, 2)}));
    EXPECT_EQ(presets.count(), 1);
    EXPECT_EQ(rules.count(), 1);
}

TEST_F(Store, aRejectedImportChangesNothingAtAll) {
    const KeyMappings rules{mapping(1, 2)};
    leaveFile(encode(rules));
    QSignalSpy presets(&store(), &KeyMappingStore::presetStatesChanged);
    QSignalSpy custom(&store(), &KeyMappingStore::customMappingsChanged);
    for (const char *refused :
         {"", "[]", R"({"presetStates":{"Windows Mode":true}})",
          R"({"presetStates":{"Windows Mode":true},"customMappings":[{"id":"x"}]})",
          R"({"presetStates":{"Windows Mode":true,"Delete Key":1},"customMappings":[]})"})
        EXPECT_FALSE(store().importMappings(refused)) << refused;
    EXPECT_EQ(states(), "");
    EXPECT_EQ(store().customMappings(), rules);
    EXPECT_EQ(fileContent(), encode(rules));
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(presets.count() + custom.count(), 0);
}

}  // namespace
}  // namespace pimloft
