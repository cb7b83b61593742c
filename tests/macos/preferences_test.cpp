// SPDX-License-Identifier: MIT
#include "platform/preferences/mac_preferences.h"

#include "fake_preferences.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

const QString sensitivity = QStringLiteral("pimloft.windowsnap.snapSensitivity");
const QString enabled = QStringLiteral("pimloft.keymapper.enabled");
const QString excluded = QStringLiteral("pimloft.clipboardplus.excludedApps");
const QString version = QStringLiteral("pimloft.general.lastSeenVersion");
const QString limit = QStringLiteral("pimloft.clipboardplus.maxItems");

class MacPreferencesTest : public MacTest {
protected:
    std::optional<MacPreferences> preferences_{std::in_place};
};

TEST_F(MacPreferencesTest, storesEachTypeUnderItsExactKey) {
    preferences_->set(enabled, true);
    preferences_->set(limit, 50);
    preferences_->set(sensitivity, 12.5);
    preferences_->set(version, QStringLiteral("1.0.0"));
    preferences_->set(excluded, QStringList{QStringLiteral("Notes"), QStringLiteral("1Password")});
    EXPECT_EQ(log(), "set pimloft.keymapper.enabled true\n"
                     "set pimloft.clipboardplus.maxItems 50 (whole)\n"
                     "set pimloft.windowsnap.snapSensitivity 12.5\n"
                     "set pimloft.general.lastSeenVersion \"1.0.0\"\n"
                     "set pimloft.clipboardplus.excludedApps [\"Notes\", \"1Password\"]\n");
}

TEST_F(MacPreferencesTest, readsEachTypeBack) {
    mac::storeFlag(enabled.toStdString(), true);
    mac::storeWhole(limit.toStdString(), 50);
    mac::storeNumber(sensitivity.toStdString(), 12.5);
    mac::storeText(version.toStdString(), "1.0.0");
    mac::storeTexts(excluded.toStdString(), {"Notes", "1Password"});
    EXPECT_EQ(preferences_->object(enabled), QVariant(true));
    EXPECT_EQ(preferences_->object(limit), QVariant(50LL));
    EXPECT_EQ(preferences_->object(sensitivity), QVariant(12.5));
    EXPECT_EQ(preferences_->text(version), QStringLiteral("1.0.0"));
    EXPECT_EQ(preferences_->texts(excluded),
              (QStringList{QStringLiteral("Notes"), QStringLiteral("1Password")}));
}

TEST_F(MacPreferencesTest, answersARegisteredDefaultWhereNothingIsStoredAndStoresNone) {
    preferences_->registerDefaults({{sensitivity, 10.0}, {enabled, true}});
    EXPECT_EQ(preferences_->number(sensitivity), 10.0);
    mac::storeFlag(enabled.toStdString(), false);
    EXPECT_FALSE(preferences_->flag(enabled));
    EXPECT_EQ(log(), "");
}

TEST_F(MacPreferencesTest, answersTheEmptyValueWhereThereIsNeither) {
    EXPECT_FALSE(preferences_->object(version).isValid());
    EXPECT_FALSE(preferences_->flag(enabled));
    EXPECT_EQ(preferences_->texts(excluded), std::nullopt);
}

TEST_F(MacPreferencesTest, takesEffectAtOnce) {
    preferences_->set(sensitivity, 7.0);
    EXPECT_EQ(preferences_->number(sensitivity), 7.0);
}

TEST_F(MacPreferencesTest, forgetsAValueAndAnswersTheDefaultAgain) {
    preferences_->registerDefaults({{sensitivity, 10.0}});
    preferences_->set(sensitivity, 7.0);
    preferences_->set(sensitivity, QVariant());
    EXPECT_EQ(mac::stored(sensitivity.toStdString()), "nothing");
    EXPECT_EQ(preferences_->number(sensitivity), 10.0);
}

TEST_F(MacPreferencesTest, sendsTheChangesOfOneTurnToTheDiskTogether) {
    preferences_->set(sensitivity, 7.0);
    preferences_->set(sensitivity, 8.0);
    log();
    runQueue();
    EXPECT_EQ(log(), "synchronize\n");
    runQueue();
    EXPECT_EQ(log(), "");
}

TEST_F(MacPreferencesTest, losesNothingAtTheEnd) {
    preferences_->set(enabled, false);
    log();
    preferences_.reset();
    EXPECT_EQ(log(), "synchronize\n");
}

TEST_F(MacPreferencesTest, storesTextsOfAnyLanguage) {
    const QString text = QStringLiteral("\u00dcbung \U0001F600");
    preferences_->set(version, text);
    EXPECT_EQ(preferences_->text(version), text);
}

TEST_F(MacPreferencesTest, anEmptyListStaysAListOfTexts) {
    preferences_->set(excluded, QStringList());
    EXPECT_EQ(preferences_->texts(excluded), QStringList());
}

}  // namespace

}  // namespace pimloft::test
