// SPDX-License-Identifier: MIT
#include "platform/workspace/mac_workspace.h"

#include "fake_appkit.h"
#include "mac_test.h"

#include <QTemporaryDir>

namespace pimloft::test {

namespace {

class MacWorkspaceTest : public MacTest {
protected:
    MacWorkspaceTest() {
        mac::desktop().applications = {
            {"Finder", "com.apple.finder", 301, 0},
            {"Söund Helper", std::nullopt, 302, 1},
            {std::nullopt, "com.example.agent", 303, 2, false},
        };
        mac::desktop().frontProcess = 301;
    }

    MacWorkspace workspace_;
};

TEST_F(MacWorkspaceTest, knowsTheApplicationInFront) {
    EXPECT_EQ(workspace_.frontmostApplication(),
              (Application{QStringLiteral("Finder"), QStringLiteral("com.apple.finder"), ProcessId(301),
                           ActivationPolicy::regular}));
}

TEST_F(MacWorkspaceTest, knowsNoneWhereNoneIsInFront) {
    mac::desktop().frontProcess.reset();
    EXPECT_EQ(workspace_.frontmostApplication(), std::nullopt);
}

TEST_F(MacWorkspaceTest, listsTheRunningApplicationsAsTheSystemHasThem) {
    const auto applications = workspace_.runningApplications();
    ASSERT_EQ(applications.size(), 3U);
    EXPECT_EQ(applications[1], (Application{QStringLiteral("Söund Helper"), std::nullopt, ProcessId(302),
                                            ActivationPolicy::accessory}));
    EXPECT_EQ(applications[2], (Application{QString(), QStringLiteral("com.example.agent"), ProcessId(303),
                                            ActivationPolicy::prohibited}));
}

TEST_F(MacWorkspaceTest, tellsLaterThatAnotherApplicationCameToTheFront) {
    int told = 0;
    workspace_.onFrontmostChanged = [&] { ++told; };
    mac::activateApplication(302);
    EXPECT_EQ(told, 0);
    runQueue();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(workspace_.frontmostApplication()->processId, ProcessId(302));
}

TEST_F(MacWorkspaceTest, opensALinkAsItIsWritten) {
    const QString link =
        QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
    EXPECT_TRUE(workspace_.open(QUrl(link)));
    EXPECT_EQ(log(), "open " + link.toStdString() + '\n');
}

TEST_F(MacWorkspaceTest, saysThatNobodyTakesALink) {
    mac::desktop().opensLinks = false;
    EXPECT_FALSE(workspace_.open(QUrl(QStringLiteral("https://example.org/"))));
}

TEST_F(MacWorkspaceTest, opensLinksToTheWebAndTheSettingsOnly) {
    EXPECT_TRUE(workspace_.open(QUrl(QStringLiteral("https://example.org/a%20b"))));
    EXPECT_EQ(log(), "open https://example.org/a%20b\n");
    EXPECT_FALSE(workspace_.open(QUrl(QStringLiteral("file:///Applications/Other.app"))));
    EXPECT_EQ(log(), "");
}

TEST_F(MacWorkspaceTest, opensNoLinkThatIsNone) {
    EXPECT_FALSE(workspace_.open(QUrl()));
    EXPECT_EQ(log(), "");
}

TEST_F(MacWorkspaceTest, selectsAFileInItsFolder) {
    workspace_.reveal(QStringLiteral("/tmp/a file.txt"));
    EXPECT_EQ(log(), "select /tmp/a file.txt rooted at \"\"\n");
}

TEST_F(MacWorkspaceTest, showsTheContentOfAFolder) {
    const QTemporaryDir folder;
    workspace_.reveal(folder.path());
    EXPECT_EQ(log(), "select nothing rooted at \"" + folder.path().toStdString() + "\"\n");
}

TEST_F(MacWorkspaceTest, drawsTheIconsOfApplications) {
    const QIcon icon = workspace_.icon(*workspace_.frontmostApplication());
    EXPECT_EQ(icon.pixmap(32, 32).toImage().pixelColor(16, 16), QColor(Qt::red));
    EXPECT_TRUE(workspace_.icon(workspace_.runningApplications()[2]).isNull());
}

TEST_F(MacWorkspaceTest, drawsTheIconsOfFiles) {
    const QIcon icon = workspace_.fileIcon(QStringLiteral("/tmp/note.txt"));
    EXPECT_THAT(log(), testing::HasSubstr("icon of /tmp/note.txt\n"));
    EXPECT_EQ(icon.pixmap(16, 16).toImage().pixelColor(8, 8), QColor(0, 255, 0));
}

}  // namespace

}  // namespace pimloft::test
