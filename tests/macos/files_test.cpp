// SPDX-License-Identifier: MIT
#include "platform/files/mac_files.h"

#include "fake_files.h"
#include "mac_test.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft::test {

namespace {

class MacFilesTest : public MacTest {
protected:
    MacFilesTest() {
        QDir(folder_.path()).mkdir(QStringLiteral("target"));
        write(QStringLiteral("report.txt"), "report");
    }

    QString at(const QString &name) const { return folder_.filePath(name); }
    FileUrl url(const QString &name) const { return *FileUrl::fromPath(QFile::encodeName(at(name))); }

    void write(const QString &name, const QByteArray &content) const {
        QFile file(at(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// "report.txt target"
    std::string names(const QString &in = {}) const {
        return QDir(at(in))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)
            .join(QLatin1Char(' '))
            .toStdString();
    }

    FileService::Staged stage(const QString &name) {
        return files_.stage(url(name), url(QStringLiteral("target")), [] { return false; });
    }

    QTemporaryDir folder_;
    MacFiles files_;
};

TEST_F(MacFilesTest, renamesInOneStepThatNeverReplaces) {
    EXPECT_EQ(files_.rename(url(QStringLiteral("report.txt")), url(QStringLiteral("target/report.txt"))),
              std::nullopt);
    EXPECT_EQ(log(), "rename without replacing\n");
    EXPECT_EQ(names(QStringLiteral("target")), "report.txt");
}

TEST_F(MacFilesTest, saysThatANameIsTaken) {
    write(QStringLiteral("other.txt"), "other");
    const auto error = files_.rename(url(QStringLiteral("report.txt")), url(QStringLiteral("other.txt")));
    EXPECT_EQ(error->problem, FileProblem::exists);
    EXPECT_EQ(names(), "other.txt report.txt target");
}

TEST_F(MacFilesTest, looksFirstWhereTheVolumeCannotRenameExclusively) {
    mac::fileSystem().knowsExclusiveRename = false;
    write(QStringLiteral("other.txt"), "other");
    EXPECT_EQ(files_.rename(url(QStringLiteral("report.txt")), url(QStringLiteral("other.txt")))->problem,
              FileProblem::exists);
    EXPECT_EQ(files_.rename(url(QStringLiteral("report.txt")), url(QStringLiteral("new.txt"))), std::nullopt);
    EXPECT_EQ(names(), "new.txt other.txt target");
}

TEST_F(MacFilesTest, saysThatOnlyACopyGetsToAnotherVolume) {
    mac::fileSystem().renameError = EXDEV;
    EXPECT_EQ(files_.rename(url(QStringLiteral("report.txt")), url(QStringLiteral("target/a")))->problem,
              FileProblem::otherVolume);
}

TEST_F(MacFilesTest, movesNoFolderIntoItself) {
    EXPECT_EQ(files_.rename(url(QStringLiteral("target")), url(QStringLiteral("target/again")))->problem,
              FileProblem::other);
    EXPECT_EQ(files_.stage(url(QStringLiteral("target")), url(QStringLiteral("target")), [] { return false; })
                  .error->problem,
              FileProblem::other);
    EXPECT_EQ(log(), "");
}

TEST_F(MacFilesTest, copiesEverythingUnderAHiddenNameAndHasTheDiskWriteIt) {
    const auto staged = stage(QStringLiteral("report.txt"));
    ASSERT_TRUE(staged.copy);
    EXPECT_EQ(log(), "copy with flags 0xe800f\nsync volume 2\n");
    EXPECT_THAT(names(QStringLiteral("target")), testing::MatchesRegex("\\.report\\.txt\\.part-[a-z]{6}"));
}

TEST_F(MacFilesTest, givesACopyItsNameInOneStepThatNeverReplaces) {
    write(QStringLiteral("target/report.txt"), "there");
    const auto staged = stage(QStringLiteral("report.txt"));
    EXPECT_EQ(staged.copy->placeAs("report.txt")->problem, FileProblem::exists);
    EXPECT_EQ(staged.copy->placeAs("report 2.txt"), std::nullopt);
    EXPECT_EQ(staged.copy->removeOriginal(), std::nullopt);
    EXPECT_EQ(names(QStringLiteral("target")), "report 2.txt report.txt");
    EXPECT_EQ(names(), "target");
}

TEST_F(MacFilesTest, leavesNothingOfACopyWithoutAName) {
    { const auto staged = stage(QStringLiteral("report.txt")); }
    EXPECT_EQ(names(QStringLiteral("target")), "");
    EXPECT_EQ(names(), "report.txt target");
}

TEST_F(MacFilesTest, leavesNothingOfACopyThatFails) {
    mac::fileSystem().copyError = ENOSPC;
    const auto staged = stage(QStringLiteral("report.txt"));
    EXPECT_EQ(staged.error->problem, FileProblem::noSpace);
    EXPECT_EQ(names(QStringLiteral("target")), "");
}

TEST_F(MacFilesTest, leavesAFolderAloneThatItMayNotLookThrough) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may look everywhere";
    QDir(folder_.path()).mkpath(QStringLiteral("album/closed"));
    ASSERT_EQ(chmod(qPrintable(at(QStringLiteral("album/closed"))), 0), 0);
    const auto staged = stage(QStringLiteral("album"));
    chmod(qPrintable(at(QStringLiteral("album/closed"))), 0700);
    ASSERT_TRUE(staged.error);
    EXPECT_EQ(staged.error->problem, FileProblem::noPermission);
    EXPECT_EQ(names(QStringLiteral("target")), "");
}

TEST_F(MacFilesTest, givesUpWhenItIsAskedTo) {
    const auto staged =
        files_.stage(url(QStringLiteral("report.txt")), url(QStringLiteral("target")), [] { return true; });
    EXPECT_EQ(staged.error->problem, FileProblem::cancelled);
    EXPECT_EQ(names(QStringLiteral("target")), "");
}

TEST_F(MacFilesTest, removesAFolderWithWhatWasCopied) {
    QDir(folder_.path()).mkpath(QStringLiteral("album/inner"));
    write(QStringLiteral("album/inner/a.png"), "a");
    QFile::link(QStringLiteral("/nowhere"), at(QStringLiteral("album/link")));
    const auto staged = stage(QStringLiteral("album"));
    EXPECT_EQ(staged.copy->placeAs("album"), std::nullopt);
    EXPECT_EQ(staged.copy->removeOriginal(), std::nullopt);
    EXPECT_EQ(names(), "report.txt target");
    EXPECT_EQ(names(QStringLiteral("target/album")), "inner link");
}

TEST_F(MacFilesTest, keepsWhatHasComeMeanwhile) {
    QDir(folder_.path()).mkdir(QStringLiteral("album"));
    const auto staged = stage(QStringLiteral("album"));
    write(QStringLiteral("album/new.txt"), "new");
    EXPECT_TRUE(staged.copy->removeOriginal());
    EXPECT_EQ(names(QStringLiteral("album")), "new.txt");
}

TEST_F(MacFilesTest, keepsWhatWasChangedMeanwhile) {
    const auto staged = stage(QStringLiteral("report.txt"));
    write(QStringLiteral("report.txt"), "a longer report");
    EXPECT_TRUE(staged.copy->removeOriginal());
    EXPECT_EQ(names(), "report.txt target");
}

}  // namespace

}  // namespace pimloft::test
