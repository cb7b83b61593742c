// SPDX-License-Identifier: MIT
// Moves between two folders that pretend to be two volumes, with calls that fail.
#include "faulty_calls.h"
#include "file_system.h"

#include "finderfix/file_mover.h"
#include "platform/files/linux_files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <unistd.h>

namespace pimloft {
namespace {

using test::listing;

class FaultyMoves : public testing::Test {
protected:
    FaultyMoves() {
        test::makeFolder(source.appending("f").appending("g"));
        test::makeFolder(target);
        test::write(source.appending("f").appending("a"), "A");
        test::write(source.appending("f").appending("g").appending("b"), "B");
        test::write(source.appending("report.txt"), "R");
        EXPECT_EQ(symlink("a", source.appending("f").appending("link").path().constData()), 0);
        before = listing(source);
    }

    /// The call fails, and everything else finds the target on another volume.
    void fail(const std::string &call, int error, const std::string &name = {}) {
        calls.fault = [=](const std::string &each, const std::string &about) {
            if (each == call && (name.empty() || about == name))
                return error;
            const bool leaves = each == "renameat2" && about.starts_with('/');
            return leaves ? EXDEV : 0;
        };
    }
    FileOutcome move(const FileUrl &item) {
        return mover.move(item, target, [] { return false; });
    }
    std::string failure(const FileUrl &item) {
        const FileOutcome outcome = move(item);
        return outcome ? outcome->description.toStdString() : "";
    }

    test::TwoVolumes volumes;
    const FileUrl source = volumes.there().appending("source");
    const FileUrl target = volumes.there().appending("target");
    std::string before;
    test::FaultyCalls calls;
    LinuxFiles files{calls};
    const FileMover mover{files};
};

struct Fault {
    const char *call;
    int error;
    FileProblem problem;
    const char *item;
};

class CopyFault : public FaultyMoves, public testing::WithParamInterface<Fault> {};

TEST_P(CopyFault, leavesTheSourceAndNothingElse) {
    fail(GetParam().call, GetParam().error);
    const FileOutcome outcome = move(source.appending(GetParam().item));
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, GetParam().problem);
    EXPECT_EQ(listing(source), before);
    EXPECT_EQ(listing(target), "");
}

INSTANTIATE_TEST_SUITE_P(Faults, CopyFault,
                         testing::Values(Fault{"create", EACCES, FileProblem::noPermission, "report.txt"},
                                         Fault{"create", EPERM, FileProblem::noPermission, "report.txt"},
                                         Fault{"create", EDQUOT, FileProblem::noSpace, "report.txt"},
                                         Fault{"create", ENOSPC, FileProblem::noSpace, "f"},
                                         Fault{"mkdir", ENOSPC, FileProblem::noSpace, "f"},
                                         Fault{"mkdir", EROFS, FileProblem::other, "f"},
                                         Fault{"symlink", EPERM, FileProblem::noPermission, "f"},
                                         Fault{"copy_file_range", ENOSPC, FileProblem::noSpace, "report.txt"},
                                         Fault{"fsync", EIO, FileProblem::other, "report.txt"},
                                         Fault{"fsync", ENOSPC, FileProblem::noSpace, "report.txt"},
                                         Fault{"syncfs", EIO, FileProblem::other, "f"},
                                         Fault{"syncfs", EDQUOT, FileProblem::noSpace, "f"}),
                         [](const auto &info) {
                             return std::string(info.param.call) + '_' + strerrorname_np(info.param.error) +
                                    '_' + std::string(info.param.item).substr(0, 1);
                         });

TEST_F(FaultyMoves, bytesThatCannotBeCopiedDirectlyAreReadAndWritten) {
    for (const int error : {EXDEV, EINVAL, EOPNOTSUPP, ENOSYS, EIO}) {
        test::write(source.appending("again"), "content");
        fail("copy_file_range", error);
        EXPECT_EQ(failure(source.appending("again")), "");
        EXPECT_EQ(listing(target), "again = content\n");
        unlink(target.appending("again").path().constData());
    }
}

TEST_F(FaultyMoves, aWriteThatFailsLeavesTheSourceAndNothingElse) {
    for (const int error : {ENOSPC, EIO}) {
        calls.fault = [error](const std::string &call, const std::string &name) {
            return call == "copy_file_range" || (call == "renameat2" && name.starts_with('/')) ? EXDEV
                   : call == "write"                                                           ? error
                                                                                               : 0;
        };
        ASSERT_TRUE(move(source.appending("f")));
        EXPECT_EQ(listing(source), before);
        EXPECT_EQ(listing(target), "");
    }
}

TEST_F(FaultyMoves, aRemovalThatFailsLeavesBothAndIsTold) {
    fail("unlink", EACCES, "report.txt");
    const FileOutcome outcome = move(source.appending("report.txt"));
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, FileProblem::noPermission);
    EXPECT_EQ(listing(source), before);
    EXPECT_EQ(listing(target), "report.txt = R\n");
}

TEST_F(FaultyMoves, aRemovalStopsAtTheFirstErrorAndTheCopyIsWhole) {
    fail("rmdir", EBUSY, "g");
    EXPECT_EQ(failure(source.appending("f")), "Device or resource busy");
    EXPECT_EQ(listing(target.appending("f")), "a = A\ng/\ng/b = B\nlink -> a\n");
    EXPECT_TRUE(test::isThere(source.appending("f").appending("g")));
}

TEST_F(FaultyMoves, whatComesIntoAFolderWhileItIsCopiedIsNotRemoved) {
    fail("", 0);
    calls.before = [this](const std::string &call) {
        if (call == "syncfs")
            test::write(source.appending("f").appending("late"), "L");
    };
    EXPECT_EQ(failure(source.appending("f")), "Directory not empty");
    EXPECT_EQ(test::read(source.appending("f").appending("late")), "L");
    EXPECT_EQ(listing(target.appending("f")), "a = A\ng/\ng/b = B\nlink -> a\n");
}

TEST_F(FaultyMoves, whatIsChangedWhileItIsCopiedIsNotRemoved) {
    fail("", 0);
    calls.before = [this](const std::string &call) {
        if (call == "fsync")
            test::write(source.appending("report.txt"), "changed");
    };
    EXPECT_EQ(failure(source.appending("report.txt")), "Device or resource busy");
    EXPECT_EQ(test::read(source.appending("report.txt")), "changed");
}

TEST_F(FaultyMoves, whatIsPutInTheSourcesPlaceIsNotRemoved) {
    fail("", 0);
    calls.before = [this](const std::string &call) {
        if (call != "fsync")
            return;
        unlink(source.appending("report.txt").path().constData());
        test::write(source.appending("report.txt"), "R");
    };
    EXPECT_EQ(failure(source.appending("report.txt")), "Device or resource busy");
    EXPECT_EQ(test::read(source.appending("report.txt")), "R");
}

TEST_F(FaultyMoves, aNameThatIsTakenAtTheLastMomentIsLeft) {
    fail("", 0);
    calls.before = [this](const std::string &call) {
        if (call == "fsync" && !test::isThere(target.appending("report.txt")))
            test::write(target.appending("report.txt"), "other");
    };
    EXPECT_EQ(failure(source.appending("report.txt")), "");
    EXPECT_EQ(listing(target), "report 2.txt = R\nreport.txt = other\n");
}

/// On file systems that know no rename that spares what is there.
class OldFileSystem : public FaultyMoves, public testing::WithParamInterface<int> {
protected:
    OldFileSystem() {
        calls.fault = [this](const std::string &call, const std::string &) {
            return call == "renameat2" ? GetParam() : call == noLink ? EPERM : 0;
        };
    }
    std::string noLink;
};

TEST_P(OldFileSystem, aFileIsMovedByItsLinks) {
    test::write(target.appending("report.txt"), "old");
    EXPECT_EQ(failure(source.appending("report.txt")), "");
    EXPECT_EQ(listing(target), "report 2.txt = R\nreport.txt = old\n");
    EXPECT_FALSE(test::isThere(source.appending("report.txt")));
}

TEST_P(OldFileSystem, withoutLinksItReplacesAFileThatIsOurs) {
    noLink = "link";
    test::write(target.appending("report.txt"), "old");
    EXPECT_EQ(failure(source.appending("report.txt")), "");
    EXPECT_EQ(listing(target), "report 2.txt = R\nreport.txt = old\n");
}

TEST_P(OldFileSystem, aFolderReplacesAnEmptyOneThatIsOurs) {
    test::makeFolder(target.appending("f"));
    EXPECT_EQ(failure(source.appending("f")), "");
    EXPECT_EQ(listing(target), "f 2/\nf 2/a = A\nf 2/g/\nf 2/g/b = B\nf 2/link -> a\nf/\n");
}

TEST_P(OldFileSystem, aFileThatCannotBeTakenOutOfItsFolderStaysThere) {
    calls.fault = [](const std::string &call, const std::string &name) {
        return call == "renameat2" ? GetParam() : call == "unlink" && name.starts_with('/') ? EACCES : 0;
    };
    const FileOutcome outcome = move(source.appending("report.txt"));
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, FileProblem::noPermission);
    EXPECT_EQ(listing(source), before);
    EXPECT_EQ(listing(target), "");
}

TEST_P(OldFileSystem, aFailedRenameTakesItsClaimBack) {
    calls.fault = [](const std::string &call, const std::string &) {
        return call == "renameat2" ? GetParam() : call == "link" ? EPERM : call == "rename" ? EIO : 0;
    };
    EXPECT_EQ(failure(source.appending("report.txt")), "Input/output error");
    EXPECT_EQ(failure(source.appending("f")), "Input/output error");
    EXPECT_EQ(listing(source), before);
    EXPECT_EQ(listing(target), "");
}

TEST_P(OldFileSystem, aFolderDoesNotGoIntoItself) {
    const FileOutcome outcome =
        mover.move(source.appending("f"), source.appending("f").appending("g"), [] { return false; });
    ASSERT_TRUE(outcome);
    EXPECT_EQ(listing(source), before);
}

INSTANTIATE_TEST_SUITE_P(Answers, OldFileSystem, testing::Values(EINVAL, ENOSYS),
                         [](const auto &info) { return strerrorname_np(info.param); });

}  // namespace
}  // namespace pimloft
