// SPDX-License-Identifier: MIT
// The file tools beside the file managers: their menu for new files, and who has the two shortcuts.
#include "desktop/support/desktop_test.h"
#include "desktop/support/first_run.h"

#include <QDir>
#include <QFile>

namespace pimloft::test {
namespace {

class NewFiles : public DesktopTest {
protected:
    void SetUp() override { openDesktop(QStringLiteral("openbox")); }

    QString path(const char *below) { return session().home() + QString::fromUtf8(below); }
    void write(const char *name, const QByteArray &text) {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
    }
    /// As xdg-user-dirs leaves it, in the session's own configuration.
    void giveTheDesktopATemplatesFolder() {
        QDir().mkpath(path("/Templates"));
        write("/config/user-dirs.dirs",
              "XDG_TEMPLATES_DIR=\"" + QFile::encodeName(path("/Templates")) + "\"\n");
    }
    QStringList menu() { return QDir(path("/Templates")).entryList(QDir::Files, QDir::Name); }
    bool menuBecomes(const QStringList &names) {
        return waitUntil([&] { return menu() == names; });
    }

    const QStringList kinds{QStringLiteral("HTML File.html"), QStringLiteral("Markdown File.md"),
                            QStringLiteral("Python Script.py"), QStringLiteral("Shell Script.sh"),
                            QStringLiteral("Text File.txt")};
};

TEST_F(NewFiles, areInTheFileManagersMenuAndStayThereAtTheEnd) {
    giveTheDesktopATemplatesFolder();
    startPimloft();
    EXPECT_TRUE(menuBecomes(kinds));
    launch(session(), {QStringLiteral("--quit")});
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    EXPECT_EQ(menu(), kinds);
}

TEST_F(NewFiles, goFromTheMenuWhereTheFeatureIsOffAndTheUsersStay) {
    giveTheDesktopATemplatesFolder();
    startPimloft();
    ASSERT_TRUE(menuBecomes(kinds));
    launch(session(), {QStringLiteral("--quit")});
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    write("/Templates/own.txt", "mine");
    write("/Templates/Text File.txt", "changed");
    skipFirstRun(session(), {{QStringLiteral("pimloft.finderfix.enabled"), false}});
    startPimloft();
    EXPECT_TRUE(menuBecomes({QStringLiteral("Text File.txt"), QStringLiteral("own.txt")}));
    EXPECT_FALSE(desktop().isKeyTaken(KEY_X, XCB_MOD_MASK_4));
}

TEST_F(NewFiles, bothShortcutsBelongToPimloftWhileTheFeatureIsOn) {
    startPimloft();
    for (const int key : {KEY_X, KEY_V})
        EXPECT_TRUE(waitUntil([&] { return desktop().isKeyTaken(key, XCB_MOD_MASK_4); }));
    EXPECT_FALSE(QFile::exists(path("/Templates"))) << "there is no templates folder";
}

}  // namespace
}  // namespace pimloft::test
