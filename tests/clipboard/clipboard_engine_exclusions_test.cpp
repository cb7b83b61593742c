// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include <QLocale>

namespace pimloft {
namespace {

using test::ClipboardEngineTest;

class PasswordManager : public ClipboardEngineTest, public testing::WithParamInterface<const char *> {};

TEST_P(PasswordManager, isNeverReadAlsoWithAnEmptyList) {
    setExcluded({});
    setFront(QStringLiteral("Vault"), QString::fromLatin1(GetParam()));
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    EXPECT_EQ(desktop.pasteboard.pendingQuestions(), 0);
    settle();
    EXPECT_EQ(recorded(), "");
}

TEST_P(PasswordManager, isNotRecordedWhenItOwnsTheContent) {
    setExcluded({});
    desktop.pasteboard.copiedBy.bundleId = QString::fromLatin1(GetParam());
    copyText("x");
    EXPECT_EQ(recorded(), "");
}

INSTANTIATE_TEST_SUITE_P(ClipboardEngine, PasswordManager,
                         testing::Values("com.1password", "com.1password.1password",
                                         "com.agilebits.onepassword7", "com.bitwarden.desktop",
                                         "com.lastpass.LastPass"));

TEST_F(ClipboardEngineTest, recordsApplicationsWhoseIdentifiersOnlyResembleTheFixedOnes) {
    setExcluded({});
    for (const char *bundleId : {"com.bitwarden", "org.com.1password", "com.lastpass.lastpass"}) {
        setFront(QStringLiteral("App"), QString::fromLatin1(bundleId));
        copyText(bundleId);
        EXPECT_EQ(newest().preview(), QString::fromLatin1(bundleId));
    }
}

TEST_F(ClipboardEngineTest, recordsNothingThatItsOwnerCallsSecret) {
    desktop.pasteboard.copiedBy.isSecret = true;
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    engine.checkForChanges();
    ASSERT_TRUE(desktop.pasteboard.answer());
    EXPECT_EQ(desktop.pasteboard.pendingQuestions(), 0) << "its content is read";
    settle();
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardEngineTest, excludesTheUsualNamesUntilTheUserHasAList) {
    EXPECT_TRUE(engine.isExcludedApp(QStringLiteral("1Password 7")));
    EXPECT_TRUE(engine.isExcludedApp(QStringLiteral("bitwarden")));
    EXPECT_TRUE(engine.isExcludedApp(QStringLiteral("LastPass")));
    EXPECT_FALSE(engine.isExcludedApp(QStringLiteral("Editor")));
    setExcluded({QStringLiteral("Editor")});
    EXPECT_FALSE(engine.isExcludedApp(QStringLiteral("Bitwarden")));
    EXPECT_TRUE(engine.isExcludedApp(QStringLiteral("Editor")));
}

TEST_F(ClipboardEngineTest, excludesNothingByNameWithAnEmptyList) {
    setExcluded({});
    setFront(QStringLiteral("1Password"));
    copyText("x");
    EXPECT_EQ(recorded(), "x");
}

TEST_F(ClipboardEngineTest, recordsNothingOfApplicationsWhoseNamesHoldAnExcludedOne) {
    setExcluded({QStringLiteral("Notes")});
    for (const char *name : {"Notes", "Sticky Notes", "NOTES 2"}) {
        setFront(QString::fromLatin1(name));
        copyText("x");
    }
    EXPECT_EQ(recorded(), "");
    setFront(QStringLiteral("Note"));
    copyText("x");
    EXPECT_EQ(recorded(), "x");
}

TEST_F(ClipboardEngineTest, takesAnExcludedNameForTheSameInEitherCase) {
    setExcluded({QStringLiteral("1password")});
    EXPECT_TRUE(engine.isExcludedApp(QStringLiteral("1Password 7")));
}

TEST_F(ClipboardEngineTest, followsTheCaseRulesOfTheUsersLanguage) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Turkish));
    setExcluded({QStringLiteral("\u0131\u015F\u0131k")});
    EXPECT_TRUE(engine.isExcludedApp(QStringLiteral("I\u015EIK")));
    QLocale::setDefault(before);
}

TEST_F(ClipboardEngineTest, takesAnEmptyExcludedNameForNone) {
    setExcluded({QString()});
    EXPECT_FALSE(engine.isExcludedApp(QStringLiteral("Editor")));
}

}  // namespace
}  // namespace pimloft
