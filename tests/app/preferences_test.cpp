// SPDX-License-Identifier: MIT
#include "platform/preferences/fake_preferences.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QString key = QStringLiteral("some.key");

struct Preferences : testing::Test {
    std::optional<QStringList> textsOf(const QVariant &stored) {
        preferences.stored[key] = stored;
        return preferences.texts(key);
    }

    FakeLog log;
    FakePreferences preferences{log};
};

TEST_F(Preferences, aListOfTextsIsRead) {
    const QStringList apps{QStringLiteral("Vault"), QStringLiteral("Keys")};
    EXPECT_EQ(textsOf(apps), apps);
    EXPECT_EQ(textsOf(QVariantList{QStringLiteral("Vault"), QStringLiteral("Keys")}), apps);
}

TEST_F(Preferences, anEmptyListIsAList) {
    EXPECT_EQ(textsOf(QStringList()), QStringList());
    EXPECT_EQ(textsOf(QVariantList()), QStringList());
}

TEST_F(Preferences, whatIsNoListOfTextsIsNone) {
    EXPECT_EQ(preferences.texts(key), std::nullopt);
    EXPECT_EQ(textsOf(QStringLiteral("Vault")), std::nullopt);
    EXPECT_EQ(textsOf(true), std::nullopt);
    EXPECT_EQ(textsOf(QVariantList{QStringLiteral("Vault"), 1}), std::nullopt);
    EXPECT_EQ(textsOf(QVariantMap{{key, QStringLiteral("Vault")}}), std::nullopt);
}

TEST_F(Preferences, missingValuesReadAsEmpty) {
    EXPECT_FALSE(preferences.flag(key));
    EXPECT_EQ(preferences.integer(key), 0);
    EXPECT_EQ(preferences.number(key), 0.0);
    EXPECT_EQ(preferences.text(key), QString());
}

TEST_F(Preferences, numbersAreReadWhicheverWayTheyWereStored) {
    preferences.stored[key] = 12;
    EXPECT_EQ(preferences.number(key), 12.0);
    preferences.stored[key] = 12.0;
    EXPECT_EQ(preferences.integer(key), 12);
}

TEST_F(Preferences, valuesThatCannotBeConvertedReadAsEmpty) {
    preferences.stored[key] = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    EXPECT_FALSE(preferences.flag(key));
    EXPECT_EQ(preferences.integer(key), 0);
    EXPECT_EQ(preferences.number(key), 0.0);
    preferences.stored[key] = QStringLiteral("wide");
    EXPECT_EQ(preferences.number(key), 0.0);
}

TEST_F(Preferences, aStoredValueWinsOverARegisteredOne) {
    preferences.registerDefaults({{key, 10.0}});
    EXPECT_EQ(preferences.number(key), 10.0);
    preferences.set(key, 3.0);
    EXPECT_EQ(preferences.number(key), 3.0);
}

}  // namespace
}  // namespace pimloft
