// SPDX-License-Identifier: MIT
#include "platform/templates_menu/template_entries.h"
#include "platform/templates_menu/xdg_templates_menu.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace pimloft {
namespace {

class Entries : public testing::Test {
protected:
    Entries() { QDir(home.path()).mkdir(QStringLiteral("Templates")); }

    FileUrl url(const char *path) const { return FileUrl::fromPath(home.path().toUtf8() + path).value(); }
    QString path(const char *name) const { return home.path() + QString::fromUtf8(name); }
    TemplateEntries entries(const char *folder = "/Templates") const {
        return {url(folder), url(""), path("/record.json")};
    }
    void write(const char *name, const QByteArray &content) const {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
    QByteArray read(const char *name) const {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(nothing)");
    }
    std::string menu(const char *folder = "/Templates") const {
        QStringList lines;
        for (const QString &name :
             QDir(path(folder))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)) {
            QFile file(path(folder) + QLatin1Char('/') + name);
            lines << name + QStringLiteral(" = ") +
                         (file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString());
        }
        return lines.join(QStringLiteral(", ")).toStdString();
    }

    QTemporaryDir home;
    const std::vector<NewFileKind> kinds = {{"Text File.txt", "", false}, {"Shell Script.sh", "#!", true}};
};

TEST_F(Entries, areThereAndGoAgain) {
    entries().put(kinds, {});
    EXPECT_EQ(menu(), "Shell Script.sh = #!, Text File.txt = ");
    entries().removeAll();
    EXPECT_EQ(menu(), "");
    EXPECT_FALSE(QFile::exists(path("/record.json")));
}

TEST_F(Entries, scriptsCanBeRun) {
    entries().put(kinds, {});
    EXPECT_TRUE(QFileInfo(path("/Templates/Shell Script.sh")).isExecutable());
    EXPECT_EQ(QFile::permissions(path("/Templates/Text File.txt")) & 0x1111, 0);
}

TEST_F(Entries, templatesAreCopiedWithTheirContentAndMode) {
    write("/own/Letter.odt", "Dear");
    chmod(url("/own/Letter.odt").path().constData(), 0600);
    entries().put({}, {url("/own/Letter.odt")});
    EXPECT_EQ(menu(), "Letter.odt = Dear");
    struct stat status {};
    lstat(url("/Templates/Letter.odt").path().constData(), &status);
    EXPECT_EQ(status.st_mode, mode_t(S_IFREG | 0600)) << "a file and no link";
}

TEST_F(Entries, aNameThatIsNoTextWorks) {
    const FileUrl own = url("").appending("\xFF.txt");
    fclose(fopen(own.path().constData(), "w"));
    entries().put({}, {own});
    struct stat status {};
    EXPECT_EQ(lstat(url("/Templates").appending("\xFF.txt").path().constData(), &status), 0);
    entries().removeAll();
    EXPECT_NE(lstat(url("/Templates").appending("\xFF.txt").path().constData(), &status), 0);
    unlink(own.path().constData());
}

TEST_F(Entries, foldersAndBrokenLinksAreNotOffered) {
    QDir(home.path()).mkpath(QStringLiteral("own/folder"));
    ASSERT_EQ(symlink("nowhere", url("/own/link").path().constData()), 0);
    ASSERT_EQ(mkfifo(url("/own/pipe").path().constData(), 0600), 0);
    entries().put({}, {url("/own/folder"), url("/own/link"), url("/own/pipe"), url("/own/gone")});
    EXPECT_EQ(menu(), "");
}

TEST_F(Entries, aTemplateOfTheUsersComesBeforeAKindOfTheSameName) {
    write("/own/Text File.txt", "mine");
    entries().put(kinds, {url("/own/Text File.txt")});
    EXPECT_EQ(menu(), "Shell Script.sh = #!, Text File.txt = mine");
}

TEST_F(Entries, followATemplateThatChangesAndOneThatGoes) {
    write("/own/a", "one");
    entries().put({}, {url("/own/a")});
    write("/own/a", "two");
    entries().put({}, {url("/own/a")});
    EXPECT_EQ(menu(), "a = two");
    entries().put({}, {});
    EXPECT_EQ(menu(), "");
}

TEST_F(Entries, aFileOfTheUsersIsNeverTouched) {
    write("/Templates/Text File.txt", "the user's");
    write("/Templates/Other.txt", "also");
    entries().put(kinds, {});
    EXPECT_EQ(menu(), "Other.txt = also, Shell Script.sh = #!, Text File.txt = the user's");
    entries().removeAll();
    EXPECT_EQ(menu(), "Other.txt = also, Text File.txt = the user's");
}

TEST_F(Entries, anEntryThatTheUserHasChangedIsTheUsers) {
    entries().put(kinds, {});
    write("/Templates/Text File.txt", "changed");
    entries().put({{"Text File.txt", "newer", false}, kinds[1]}, {});
    EXPECT_EQ(menu(), "Shell Script.sh = #!, Text File.txt = changed");
    entries().removeAll();
    EXPECT_EQ(menu(), "Text File.txt = changed");
}

TEST_F(Entries, aLinkInAnEntrysPlaceIsTheUsers) {
    entries().put(kinds, {});
    QFile::remove(path("/Templates/Text File.txt"));
    write("/elsewhere", "");
    ASSERT_EQ(
        symlink(url("/elsewhere").path().constData(), url("/Templates/Text File.txt").path().constData()), 0);
    entries().put(kinds, {});
    entries().removeAll();
    EXPECT_TRUE(QFileInfo(path("/Templates/Text File.txt")).isSymLink());
    EXPECT_TRUE(QFile::exists(path("/elsewhere")));
}

TEST_F(Entries, anEntryThatTheUserHasRemovedStaysAwayUntilTheNextSwitch) {
    entries().put(kinds, {});
    QFile::remove(path("/Templates/Text File.txt"));
    entries().put(kinds, {});
    EXPECT_EQ(menu(), "Shell Script.sh = #!");
    entries().removeAll();
    entries().put(kinds, {});
    EXPECT_EQ(menu(), "Shell Script.sh = #!, Text File.txt = ");
}

TEST_F(Entries, anEntryThatTheUserHasRenamedIsLeft) {
    entries().put(kinds, {});
    QFile::rename(path("/Templates/Text File.txt"), path("/Templates/Note.txt"));
    entries().removeAll();
    EXPECT_EQ(menu(), "Note.txt = ");
}

TEST_F(Entries, nothingIsDoneInTheHomeFolder) {
    entries("").put(kinds, {});
    EXPECT_EQ(menu(""), "Templates = ");
}

TEST_F(Entries, nothingIsDoneWhereTheFolderIsMissing) {
    entries("/Missing").put(kinds, {});
    EXPECT_FALSE(QFile::exists(path("/Missing")));
    EXPECT_FALSE(QFile::exists(path("/record.json")));
    entries("/Missing").removeAll();
}

TEST_F(Entries, aFolderThatIsAwayForAWhileComesBackWithOurEntries) {
    entries().put(kinds, {});
    QDir(home.path()).rename(QStringLiteral("Templates"), QStringLiteral("away"));
    entries().put(kinds, {});
    entries().removeAll();
    QDir(home.path()).rename(QStringLiteral("away"), QStringLiteral("Templates"));
    entries().removeAll();
    EXPECT_EQ(menu(), "");
}

TEST_F(Entries, nothingIsDoneWhereTheUsersTemplatesAreKeptInThatVeryFolder) {
    write("/Templates/own.txt", "x");
    entries().put(kinds, {url("/Templates/own.txt")});
    EXPECT_EQ(menu(), "own.txt = x");
}

TEST_F(Entries, moveToAnotherFolderWithTheDesktopsSetting) {
    QDir(home.path()).mkdir(QStringLiteral("Vorlagen"));
    entries().put(kinds, {});
    entries("/Vorlagen").put(kinds, {});
    EXPECT_EQ(menu(), "");
    EXPECT_EQ(menu("/Vorlagen"), "Shell Script.sh = #!, Text File.txt = ");
}

TEST_F(Entries, anEntryThatWasOnlyPlannedIsMade) {
    entries().put(kinds, {});
    QFile::remove(path("/Templates/Text File.txt"));
    QByteArray record = read("/record.json");
    record.replace("true", "false");
    write("/record.json", record);
    entries().put(kinds, {});
    EXPECT_EQ(menu(), "Shell Script.sh = #!, Text File.txt = ") << "as after a crash between the two";
}

TEST_F(Entries, withoutARecordNothingIsMade) {
    QDir(home.path()).mkdir(QStringLiteral("record.json"));
    entries().put(kinds, {});
    EXPECT_EQ(menu(), "");
}

TEST_F(Entries, aBrokenOrHostileRecordHarmsNothing) {
    write("/victim", "#!");
    for (const char *record :
         {"", "{", "[]", R"({"folder":"file:///","entries":[{"name":"etc"}]})",
          R"({"folder":5,"entries":[{"name":"..%2Fvictim","sha256":["x"],"made":true},5]})"}) {
        write("/record.json", record);
        entries().put(kinds, {});
        EXPECT_EQ(read("/victim"), "#!") << record;
    }
}

TEST_F(Entries, theServiceWritesInTheBackgroundAndIsDoneAtItsEnd) {
    {
        XdgTemplatesMenu service(url("/Templates"), url(""), home.path());
        service.offer(kinds, {});
    }
    EXPECT_EQ(menu(), "Shell Script.sh = #!, Text File.txt = ");
    {
        XdgTemplatesMenu service(url("/Templates"), url(""), home.path());
        service.withdraw();
    }
    EXPECT_EQ(menu(), "");
    XdgTemplatesMenu nowhere(std::nullopt, url(""), home.path());
    nowhere.offer(kinds, {});
    nowhere.withdraw();
}

}  // namespace
}  // namespace pimloft
