// SPDX-License-Identifier: MIT
#include "platform/workspace/help_topics.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QUrl accessibility(
    QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
const QUrl extensions(QStringLiteral("x-apple.systempreferences:com.apple.preferences.extensions?Finder"));

class HelpTopics : public testing::Test {
protected:
    void install(const QString &page) const {
        QFile file(help_.filePath(page));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    std::optional<QString> page(const QUrl &url) const { return helpPage(url, help_.path()); }
    QTemporaryDir help_;
};

TEST_F(HelpTopics, haveAPageForEachLinkToTheSettings) {
    install(QStringLiteral("permissions.html"));
    install(QStringLiteral("file-managers.html"));
    EXPECT_EQ(page(accessibility), help_.filePath(QStringLiteral("permissions.html")));
    EXPECT_EQ(page(extensions), help_.filePath(QStringLiteral("file-managers.html")));
}

TEST_F(HelpTopics, haveNoPageThatIsNotInstalled) {
    install(QStringLiteral("permissions.html"));
    EXPECT_EQ(page(extensions), std::nullopt);
}

TEST_F(HelpTopics, haveNoPageForOtherLinks) {
    install(QStringLiteral("permissions.html"));
    EXPECT_EQ(page(QUrl(QStringLiteral("x-apple.systempreferences:com.apple.preference.sound"))),
              std::nullopt);
    EXPECT_EQ(page(QUrl(QStringLiteral("https:com.apple.preference.security?Privacy_Accessibility"))),
              std::nullopt);
    EXPECT_FALSE(isSettingsLink(QUrl(QStringLiteral("https://example.org"))));
    EXPECT_TRUE(isSettingsLink(accessibility));
}

}  // namespace
}  // namespace pimloft
