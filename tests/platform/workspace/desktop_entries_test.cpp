// SPDX-License-Identifier: MIT
#include "platform/workspace/desktop_entries.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// The installed programs of this whole test binary: GIO looks up once where they are.
class Installation : public testing::Environment {
public:
    void SetUp() override {
        QDir().mkpath(applications());
        qputenv("XDG_DATA_HOME", QFile::encodeName(root_.filePath(QStringLiteral("user"))));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(root_.filePath(QStringLiteral("system"))));
        qputenv("LANGUAGE", "de");
    }
    QString applications() const { return root_.filePath(QStringLiteral("system/applications")); }

private:
    QTemporaryDir root_;
};

auto *const installation = static_cast<Installation *>(testing::AddGlobalTestEnvironment(new Installation));

QString path(const QString &id) {
    return installation->applications() + QLatin1Char('/') + id + QStringLiteral(".desktop");
}

/// The program has to exist: an entry without one counts as not installed.
void install(const QString &id, const QByteArray &lines = {}, const QByteArray &program = "/bin/true") {
    QFile file(path(id));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nName=" + id.toUtf8() + "\nExec=" + program + '\n' + lines);
}

class DesktopEntriesTest : public testing::Test {
protected:
    ~DesktopEntriesTest() override {
        for (const QString &name : QDir(installation->applications()).entryList(QDir::Files))
            QFile::remove(installation->applications() + QLatin1Char('/') + name);
    }

    /// The id of the entry that a program is matched with.
    std::string match(const ProgramTraits &traits) {
        const auto entry = entries_.match(traits);
        return entry ? entry->id.toStdString() : "(none)";
    }
    /// GIO notices new files a little later.
    bool becomes(const ProgramTraits &traits, const char *id) {
        return QTest::qWaitFor([&] { return match(traits) == id; });
    }

    DesktopEntries entries_;
};

ProgramTraits windowOf(const QString &windowClass, const QString &instance = {}) {
    return {.windowClass = windowClass, .windowInstance = instance};
}

TEST_F(DesktopEntriesTest, areMatchedByTheEntryThatTheProgramWasLaunchedFrom) {
    install(QStringLiteral("launched"));
    install(QStringLiteral("editor"), "StartupWMClass=Editor\n");
    ProgramTraits traits = windowOf(QStringLiteral("Editor"));
    traits.launchedEntry = QStringLiteral("/anywhere/applications/launched.desktop");
    EXPECT_TRUE(becomes(traits, "launched"));
}

TEST_F(DesktopEntriesTest, areMatchedByTheApplicationIdOfAGtkWindow) {
    install(QStringLiteral("org.example.Viewer"));
    install(QStringLiteral("other"), "StartupWMClass=Viewer\n");
    ProgramTraits traits = windowOf(QStringLiteral("Viewer"));
    traits.gtkApplicationId = QStringLiteral("org.example.Viewer");
    EXPECT_TRUE(becomes(traits, "org.example.Viewer"));
}

TEST_F(DesktopEntriesTest, fallThroughWhereTheApplicationIdNamesNoEntry) {
    install(QStringLiteral("filer"));
    ProgramTraits traits = windowOf(QStringLiteral("Filer"));
    traits.gtkApplicationId = QStringLiteral("org.example.Filer");
    EXPECT_TRUE(becomes(traits, "filer"));
}

TEST_F(DesktopEntriesTest, areMatchedByTheStartupClassBeforeTheId) {
    install(QStringLiteral("term"));
    install(QStringLiteral("distribution-term"), "StartupWMClass=Term\n");
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("TERM")), "distribution-term"));
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("Other"), QStringLiteral("term")), "distribution-term"));
}

TEST_F(DesktopEntriesTest, areMatchedByTheirIdOrItsLastPart) {
    install(QStringLiteral("org.example.Painter"));
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("painter")), "org.example.Painter"));
    EXPECT_EQ(match(windowOf(QStringLiteral("org.example.painter"))), "org.example.Painter");
    EXPECT_EQ(match(windowOf(QStringLiteral("Window"), QStringLiteral("painter"))), "org.example.Painter");
    EXPECT_EQ(match(windowOf(QStringLiteral("paint"))), "(none)");
    EXPECT_EQ(match({}), "(none)");
}

TEST_F(DesktopEntriesTest, areMatchedByTheirProgram) {
    install(QStringLiteral("waiter"), {}, "/bin/sleep --for %U");
    EXPECT_TRUE(becomes({.executable = QStringLiteral("sleep")}, "waiter"));
}

TEST_F(DesktopEntriesTest, areNotMatchedByAnInterpreter) {
    for (const QString &interpreter : {QStringLiteral("perl"), QStringLiteral("sh"), QStringLiteral("env")}) {
        install(QStringLiteral("run-by-") + interpreter, {}, interpreter.toUtf8() + " x");
        EXPECT_TRUE(becomes(windowOf(QStringLiteral("run-by-") + interpreter),
                            ("run-by-" + interpreter.toStdString()).c_str()));
        EXPECT_EQ(match({.executable = interpreter}), "(none)");
    }
}

TEST_F(DesktopEntriesTest, preferTheEntryOfTheMenusAndThePlainestId) {
    install(QStringLiteral("a"), "NoDisplay=true\nStartupWMClass=Filer\n");
    install(QStringLiteral("filer-settings"), "StartupWMClass=Filer\n");
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("Filer")), "filer-settings"));
    install(QStringLiteral("files"), "StartupWMClass=Filer\n");
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("Filer")), "files"));
}

TEST_F(DesktopEntriesTest, followInstallationAndRemoval) {
    int changes = 0;
    entries_.onChanged = [&changes] { ++changes; };
    EXPECT_EQ(match(windowOf(QStringLiteral("Late"))), "(none)");
    install(QStringLiteral("late"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("Late")), "late"));
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("late"))));
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("Late")), "(none)"));
}

TEST_F(DesktopEntriesTest, tellWhatTheEntrySays) {
    install(QStringLiteral("whole"), "Name[de]=Das Ganze\nIcon=whole-icon\nNoDisplay=true\n"
                                     "Categories=GTK;Utility;\nMimeType=text/plain;inode/directory;\n");
    ASSERT_TRUE(becomes(windowOf(QStringLiteral("whole")), "whole"));
    const auto entry = entries_.match(windowOf(QStringLiteral("whole")));
    EXPECT_EQ(entry->name, QStringLiteral("Das Ganze"));
    EXPECT_EQ(entry->icon, QStringLiteral("whole-icon"));
    EXPECT_EQ(entry->executable, QStringLiteral("true"));
    EXPECT_EQ(entry->categories.join(u' '), QStringLiteral("GTK Utility"));
    EXPECT_EQ(entry->mimeTypes.join(u' '), QStringLiteral("text/plain inode/directory"));
    EXPECT_TRUE(entry->isHidden);
}

TEST_F(DesktopEntriesTest, areNotMatchedWhereTheyAreDamaged) {
    QFile file(path(QStringLiteral("damaged")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry\nType=\xff");
    file.close();
    install(QStringLiteral("sound"));
    EXPECT_TRUE(becomes(windowOf(QStringLiteral("sound")), "sound"));
    EXPECT_EQ(match(windowOf(QStringLiteral("damaged"))), "(none)");
}

}  // namespace
}  // namespace pimloft
