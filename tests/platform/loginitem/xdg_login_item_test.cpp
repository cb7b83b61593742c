// SPDX-License-Identifier: MIT
// Before Qt, which makes a macro of a name that GIO uses.
#include <gio/gdesktopappinfo.h>

#include "platform/loginitem/xdg_login_item.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>

namespace pimloft {
namespace {

class LoginItem : public testing::Test {
protected:
    QString folder() const { return root_.filePath(QStringLiteral("config/autostart")); }
    QString file() const { return folder() + QStringLiteral("/pimloft.desktop"); }

    void writeFile(const QByteArray &text) const {
        QDir().mkpath(folder());
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(text);
    }
    QByteArray fileText() const {
        QFile source(file());
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("(none)");
    }
    bool has(const char *line) const { return fileText().split('\n').contains(line); }

    /// What the standard's own checker finds wrong.
    std::string complaints() const {
        QProcess checker;
        checker.setProcessChannelMode(QProcess::MergedChannels);
        checker.start(QStringLiteral("desktop-file-validate"), {file()});
        return checker.waitForFinished() ? checker.readAll().toStdString() : "cannot be run";
    }

    QTemporaryDir root_;
    XdgLoginItem item_{folder(), QStringLiteral("/usr/bin/pimloft")};
};

TEST_F(LoginItem, isAnEntryThatStartsTheProgram) {
    EXPECT_EQ(item_.registerMainApplication(), std::nullopt);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(has("Exec=/usr/bin/pimloft"));
    EXPECT_TRUE(has("TryExec=/usr/bin/pimloft"));
    EXPECT_TRUE(has("X-GNOME-Autostart-enabled=true"));
    EXPECT_TRUE(has("Terminal=false"));
}

TEST_F(LoginItem, isGoneWhenItIsUnregistered) {
    ASSERT_EQ(item_.registerMainApplication(), std::nullopt);
    EXPECT_EQ(item_.unregisterMainApplication(), std::nullopt);
    EXPECT_EQ(fileText(), "(none)");
}

TEST_F(LoginItem, canBeAskedForAgain) {
    EXPECT_EQ(item_.unregisterMainApplication(), std::nullopt) << "there was none";
    ASSERT_EQ(item_.registerMainApplication(), std::nullopt);
    const QByteArray once = fileText();
    EXPECT_EQ(item_.registerMainApplication(), std::nullopt);
    EXPECT_EQ(fileText(), once);
    EXPECT_EQ(item_.unregisterMainApplication(), std::nullopt);
    EXPECT_EQ(item_.unregisterMainApplication(), std::nullopt);
}

TEST_F(LoginItem, keepsWhatTheUserAddedButStartsAgain) {
    writeFile("# mine\n[Desktop Entry]\nType=Application\nName=Old\nExec=/gone/pimloft --old\nHidden=true\n"
              "X-GNOME-Autostart-enabled=false\nX-GNOME-Autostart-Delay=5\nName[de]=Meins\n");
    EXPECT_EQ(item_.registerMainApplication(), std::nullopt);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(has("# mine"));
    EXPECT_TRUE(has("X-GNOME-Autostart-Delay=5"));
    EXPECT_TRUE(has("Name[de]=Meins"));
    EXPECT_TRUE(has("Exec=/usr/bin/pimloft"));
    EXPECT_TRUE(has("X-GNOME-Autostart-enabled=true"));
    EXPECT_FALSE(has("Hidden=true"));
}

TEST_F(LoginItem, replacesADamagedEntry) {
    writeFile("not an entry\xff");
    EXPECT_EQ(item_.registerMainApplication(), std::nullopt);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(has("Exec=/usr/bin/pimloft"));
}

class LoginItemOfAProgramCalled : public LoginItem, public testing::WithParamInterface<const char *> {};

TEST_P(LoginItemOfAProgramCalled, startsThatVeryProgram) {
    // The program writes down that it ran; the desktop's own launcher starts it.
    const QString program = root_.filePath(QString::fromUtf8(GetParam()));
    const QString mark = root_.filePath(QStringLiteral("mark"));
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho \"$#\" > '" + QFile::encodeName(mark) + "'\n");
    script.close();
    chmod(QFile::encodeName(program).constData(), 0700);

    EXPECT_EQ(XdgLoginItem(folder(), program).registerMainApplication(), std::nullopt);
    EXPECT_EQ(complaints(), "");
    GDesktopAppInfo *entry = g_desktop_app_info_new_from_filename(QFile::encodeName(file()).constData());
    ASSERT_NE(entry, nullptr) << fileText().constData();
    GPid pid = 0;
    EXPECT_TRUE(g_desktop_app_info_launch_uris_as_manager(
        entry, nullptr, nullptr, G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr,
        [](GDesktopAppInfo *, GPid started, gpointer data) { *static_cast<GPid *>(data) = started; }, &pid,
        nullptr));
    int status = -1;
    waitpid(pid, &status, 0);
    g_object_unref(entry);
    QFile written(mark);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly)) << fileText().constData();
    EXPECT_EQ(written.readAll(), "0\n") << "started with arguments";
}

INSTANTIATE_TEST_SUITE_P(LoginItem, LoginItemOfAProgramCalled,
                         testing::Values("pimloft", "my program", "quo\"te", "dollar$HOME", "back`tick",
                                         "back\\slash", "uml\xc3\xa4ut", "apo'strophe", "semi;colon&more",
                                         "-dash", "#hash"));

TEST_F(LoginItem, describesWhyItCannotBeMade) {
    QDir(root_.path()).mkpath(QStringLiteral("config"));
    QFile obstacle(folder());
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    EXPECT_EQ(item_.registerMainApplication(), QStringLiteral("Not a directory"));
}

TEST_F(LoginItem, describesWhyItCannotBeRemoved) {
    QDir().mkpath(file() + QStringLiteral("/inside"));
    EXPECT_EQ(item_.unregisterMainApplication(), QStringLiteral("Is a directory"));
}

}  // namespace
}  // namespace pimloft
