// SPDX-License-Identifier: MIT
#include "finderfix/file_mover.h"
#include "platform/files/fake_files.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using Step = FakeFiles::Step;

class FileMoverTest : public testing::Test {
protected:
    FileMoverTest() {
        files.add("/home/report.txt", "one");
        files.add("/home/target/");
        files.addVolume("/disk");
    }

    /// What became of the move: nothing, or what the error says.
    std::string move(const char *item, const char *folder) {
        const FileOutcome outcome =
            mover.move(*FileUrl::fromPath(item), *FileUrl::fromPath(folder), [this] { return isCancelled; });
        return outcome ? outcome->description.toStdString() : "";
    }

    FakeFiles files;
    const FileMover mover{files};
    bool isCancelled = false;
};

TEST_F(FileMoverTest, movesByOneRename) {
    EXPECT_EQ(move("/home/report.txt", "/home/target"), "");
    EXPECT_EQ(files.tree(), "/disk/\n/home/\n/home/target/\n/home/target/report.txt one\n");
    EXPECT_EQ(files.steps(), "rename /home/report.txt\n");
}

TEST_F(FileMoverTest, aNameThatIsTakenGetsANumber) {
    files.add("/home/target/report.txt", "two");
    EXPECT_EQ(move("/home/report.txt", "/home/target"), "");
    EXPECT_EQ(files.tree(), "/disk/\n/home/\n/home/target/\n/home/target/report 2.txt one\n"
                            "/home/target/report.txt two\n");
}

TEST_F(FileMoverTest, theFirstFreeNumberIsTaken) {
    for (const char *name :
         {"/home/target/report.txt", "/home/target/report 2.txt", "/home/target/report 4.txt"})
        files.add(name, "other");
    EXPECT_EQ(move("/home/report.txt", "/home/target"), "");
    EXPECT_NE(files.tree().find("/home/target/report 3.txt one\n"), std::string::npos) << files.tree();
}

TEST_F(FileMoverTest, aFolderThatCollidesGetsANumberToo) {
    files.add("/home/Archive/a", "x");
    files.add("/home/target/Archive/");
    EXPECT_EQ(move("/home/Archive", "/home/target"), "");
    EXPECT_NE(files.tree().find("/home/target/Archive 2/a x\n"), std::string::npos) << files.tree();
}

TEST_F(FileMoverTest, intoItsOwnFolderAFileIsRenamed) {
    EXPECT_EQ(move("/home/report.txt", "/home"), "");
    EXPECT_EQ(files.tree(), "/disk/\n/home/\n/home/report 2.txt one\n/home/target/\n");
}

TEST_F(FileMoverTest, toAnotherVolumeItIsCopiedNamedAndThenRemoved) {
    files.add("/disk/report.txt", "two");
    EXPECT_EQ(move("/home/report.txt", "/disk"), "");
    EXPECT_EQ(files.tree(), "/disk/\n/disk/report 2.txt one\n/disk/report.txt two\n/home/\n/home/target/\n");
    EXPECT_EQ(files.steps(), "rename /home/report.txt\nrename /home/report.txt\ncopy /home/report.txt\n"
                             "place /home/report.txt\nplace /home/report.txt\nremove /home/report.txt\n")
        << "that the name is taken is told before that the volume is another";
}

TEST_F(FileMoverTest, aCopyThatFailsLeavesTheSource) {
    const std::string before = files.tree();
    files.fail(Step::stage, "/home/report.txt", {FileProblem::noSpace, QStringLiteral("full")});
    EXPECT_EQ(move("/home/report.txt", "/disk"), "full");
    EXPECT_EQ(files.tree(), before);
}

TEST_F(FileMoverTest, aCopyThatCannotBeNamedGoesAway) {
    const std::string before = files.tree();
    files.fail(Step::place, "/home/report.txt", {FileProblem::noPermission, QStringLiteral("denied")});
    EXPECT_EQ(move("/home/report.txt", "/disk"), "denied");
    EXPECT_EQ(files.tree(), before);
}

TEST_F(FileMoverTest, aSourceThatCannotBeRemovedLeavesBoth) {
    files.fail(Step::removeOriginal, "/home/report.txt",
               {FileProblem::noPermission, QStringLiteral("locked")});
    EXPECT_EQ(move("/home/report.txt", "/disk"), "locked");
    EXPECT_EQ(files.tree(), "/disk/\n/disk/report.txt one\n/home/\n/home/report.txt one\n/home/target/\n");
}

TEST_F(FileMoverTest, aFailedRenameIsNoCopy) {
    files.fail(Step::rename, "/home/report.txt", {FileProblem::noPermission, QStringLiteral("denied")});
    EXPECT_EQ(move("/home/report.txt", "/disk"), "denied");
    EXPECT_EQ(files.steps(), "rename /home/report.txt\n");
}

TEST_F(FileMoverTest, aSourceThatHasVanishedIsAnError) {
    EXPECT_EQ(move("/home/gone", "/home/target"), "No such file or directory");
}

TEST_F(FileMoverTest, aFolderDoesNotGoIntoItself) {
    files.add("/home/target/below/");
    EXPECT_EQ(move("/home/target", "/home/target/below"), "A folder cannot be moved into itself.");
}

TEST_F(FileMoverTest, aCopyThatIsGivenUpLeavesTheSource) {
    isCancelled = true;
    EXPECT_EQ(move("/home/report.txt", "/disk"), "Operation canceled");
    EXPECT_NE(files.tree().find("/home/report.txt one"), std::string::npos);
}

}  // namespace
}  // namespace pimloft
