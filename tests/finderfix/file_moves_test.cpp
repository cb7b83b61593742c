// SPDX-License-Identifier: MIT
// Moves on the file systems of this computer.
#include "file_system.h"

#include "finderfix/file_mover.h"
#include "platform/files/linux_files.h"
#include "support/full_disk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <sched.h>
#include <sys/mount.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace pimloft {
namespace {

using test::isThere;
using test::listing;
using test::statusOf;

/// Each test once from here to there and once back; the way is the parameter.
class RealMoves : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        if (!volumes.areTwo())
            GTEST_SKIP() << "the build folder and " OTHER_VOLUME " are on the same file system";
    }
    FileUrl source() const { return GetParam() ? volumes.here() : volumes.there(); }
    FileUrl target() const { return GetParam() ? volumes.there() : volumes.here(); }
    FileOutcome move(const FileUrl &item, const FileUrl &folder) {
        return mover.move(item, folder, [] { return false; });
    }
    std::string failure(const FileUrl &item, const FileUrl &folder) {
        const FileOutcome outcome = move(item, folder);
        return outcome ? outcome->description.toStdString() : "";
    }

    test::TwoVolumes volumes;
    const FileCalls calls{};
    LinuxFiles files{calls};
    const FileMover mover{files};
};

TEST_P(RealMoves, aFileKeepsContentModeOwnerTimesAndAttributes) {
    const FileUrl file = source().appending("report.txt");
    test::write(file, QByteArray(3'000'000, 'x') + "end");
    chmod(file.path().constData(), 04751);
    ASSERT_EQ(setxattr(file.path().constData(), "user.note", "a\0b", 3, 0), 0);
    const struct timespec times[] = {{1'000'000'000, 123'456'789}, {1'100'000'000, 987'654'321}};
    utimensat(AT_FDCWD, file.path().constData(), times, 0);
    ASSERT_EQ(failure(file, target()), "");

    const FileUrl moved = target().appending("report.txt");
    EXPECT_FALSE(isThere(file));
    const struct stat status = statusOf(moved);
    EXPECT_EQ(test::read(moved), QByteArray(3'000'000, 'x') + "end");
    EXPECT_EQ(status.st_mode, mode_t(S_IFREG | 04751));
    EXPECT_EQ(status.st_uid, geteuid());
    EXPECT_EQ(status.st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(status.st_mtim.tv_nsec, 987'654'321);
    EXPECT_EQ(status.st_atim.tv_sec, 1'000'000'000);
    char value[8] = {};
    EXPECT_EQ(getxattr(moved.path().constData(), "user.note", value, sizeof value), 3);
    EXPECT_EQ(std::string(value, 3), std::string("a\0b", 3));
}

TEST_P(RealMoves, anOwnerWhoIsSomebodyElseIsKeptWherePermitted) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    const FileUrl file = source().appending("a");
    test::write(file, "x");
    ASSERT_EQ(chown(file.path().constData(), 12345, 54321), 0);
    ASSERT_EQ(failure(file, target()), "");
    EXPECT_EQ(statusOf(target().appending("a")).st_uid, 12345u);
    EXPECT_EQ(statusOf(target().appending("a")).st_gid, 54321u);
}

TEST_P(RealMoves, aFolderGoesWithAllThatIsInIt) {
    const FileUrl folder = source().appending("Archive");
    test::makeFolder(folder.appending("empty"));
    test::makeFolder(folder.appending("deep").appending("er"));
    test::write(folder.appending("deep").appending("er").appending(".hidden"), "h");
    test::write(folder.appending("a"), "A");
    ASSERT_EQ(symlink("nowhere", folder.appending("dangling").path().constData()), 0);
    ASSERT_EQ(symlink("/etc", folder.appending("outside").path().constData()), 0);
    ASSERT_EQ(mkfifo(folder.appending("pipe").path().constData(), 0640), 0);
    chmod(folder.appending("empty").path().constData(), 01555);
    const struct timespec times[] = {{1'000'000'000, 1}, {1'100'000'000, 2}};
    utimensat(AT_FDCWD, folder.appending("deep").path().constData(), times, 0);
    utimensat(AT_FDCWD, folder.appending("dangling").path().constData(), times, AT_SYMLINK_NOFOLLOW);
    utimensat(AT_FDCWD, folder.path().constData(), times, 0);
    ASSERT_EQ(failure(folder, target()), "");

    const FileUrl moved = target().appending("Archive");
    EXPECT_FALSE(isThere(folder));
    EXPECT_EQ(statusOf(moved.appending("pipe")).st_mode, mode_t(S_IFIFO | 0640));
    unlink(moved.appending("pipe").path().constData());
    EXPECT_EQ(listing(moved), "a = A\ndangling -> nowhere\ndeep/\ndeep/er/\ndeep/er/.hidden = h\nempty/\n"
                              "outside -> /etc\n");
    EXPECT_EQ(statusOf(moved.appending("empty")).st_mode, mode_t(S_IFDIR | 01555));
    EXPECT_EQ(statusOf(moved.appending("deep")).st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(statusOf(moved.appending("dangling")).st_mtim.tv_sec, 1'100'000'000);
}

TEST_P(RealMoves, timesOfTheFolderItselfAreKept) {
    const FileUrl folder = source().appending("Archive");
    test::makeFolder(folder);
    test::write(folder.appending("a"), "A");
    const struct timespec times[] = {{1'000'000'000, 1}, {1'100'000'000, 2}};
    utimensat(AT_FDCWD, folder.path().constData(), times, 0);
    ASSERT_EQ(failure(folder, target()), "");
    EXPECT_EQ(statusOf(target().appending("Archive")).st_mtim.tv_nsec, 2);
}

TEST_P(RealMoves, aLinkIsMovedAndNotWhatItNames) {
    test::write(source().appending("a"), "A");
    ASSERT_EQ(symlink("a", source().appending("link").path().constData()), 0);
    ASSERT_EQ(failure(source().appending("link"), target()), "");
    EXPECT_EQ(listing(source()), "a = A\n");
    EXPECT_TRUE(S_ISLNK(statusOf(target().appending("link")).st_mode));
}

TEST_P(RealMoves, holesStayHoles) {
    const FileUrl file = source().appending("disk.img");
    test::write(file, "begin");
    ASSERT_EQ(truncate(file.path().constData(), 64 << 20), 0);
    const int descriptor = open(file.path().constData(), O_WRONLY);
    ASSERT_EQ(pwrite(descriptor, "middle", 6, 32 << 20), 6);
    close(descriptor);
    ASSERT_EQ(failure(file, target()), "");
    const FileUrl moved = target().appending("disk.img");
    EXPECT_EQ(statusOf(moved).st_size, 64 << 20);
    EXPECT_LT(statusOf(moved).st_blocks, 1024);
    const QByteArray content = test::read(moved);
    EXPECT_EQ(content.left(5), "begin");
    EXPECT_EQ(content.mid(32 << 20, 6), "middle");
    EXPECT_EQ(content.count('\0'), content.size() - 11);
}

TEST_P(RealMoves, twoNamesOfOneFileStayTwoNamesOfOneFile) {
    const FileUrl folder = source().appending("f");
    test::makeFolder(folder.appending("g"));
    test::write(folder.appending("a"), "A");
    ASSERT_EQ(link(folder.appending("a").path().constData(),
                   folder.appending("g").appending("b").path().constData()),
              0);
    ASSERT_EQ(failure(folder, target()), "");
    const FileUrl moved = target().appending("f");
    EXPECT_EQ(statusOf(moved.appending("a")).st_ino, statusOf(moved.appending("g").appending("b")).st_ino);
    EXPECT_FALSE(isThere(folder));
}

TEST_P(RealMoves, everyNameThatAFileCanHaveWorks) {
    for (const QByteArray &name : {QByteArray("a b"), QByteArray("quote\"'s"), QByteArray("100%25"),
                                   QByteArray("line\nbreak"), QByteArray("\xFF\xFE"), QByteArray("*?[]\\"),
                                   QByteArray(255, 'n'), QByteArray("-rf"), QByteArray(".hidden")}) {
        test::write(source().appending(name), name);
        EXPECT_EQ(failure(source().appending(name), target()), "") << name.toStdString();
        EXPECT_EQ(test::read(target().appending(name)), name);
    }
    EXPECT_EQ(listing(source()), "");
}

TEST_P(RealMoves, nothingIsEverReplaced) {
    test::write(target().appending("report.txt"), "old");
    test::makeFolder(target().appending("report 2.txt"));
    ASSERT_EQ(symlink("nowhere", target().appending("report 3.txt").path().constData()), 0);
    test::write(source().appending("report.txt"), "new");
    ASSERT_EQ(failure(source().appending("report.txt"), target()), "");
    EXPECT_EQ(listing(target()),
              "report 2.txt/\nreport 3.txt -> nowhere\nreport 4.txt = new\nreport.txt = old\n");
}

TEST_P(RealMoves, withinAVolumeAnItemIsRenamed) {
    const FileUrl folder = source().appending("folder");
    test::makeFolder(folder);
    test::write(source().appending("a"), "A");
    const ino_t before = statusOf(source().appending("a")).st_ino;
    ASSERT_EQ(failure(source().appending("a"), folder), "");
    EXPECT_EQ(statusOf(folder.appending("a")).st_ino, before);
    ASSERT_EQ(failure(folder.appending("a"), folder), "") << "into its own folder";
    EXPECT_EQ(listing(folder), "a 2 = A\n");
}

TEST_P(RealMoves, aFolderDoesNotGoIntoItself) {
    const FileUrl folder = source().appending("f");
    test::makeFolder(folder.appending("g").appending("h"));
    const std::string before = listing(source());
    EXPECT_EQ(failure(folder, folder.appending("g").appending("h")), "A folder cannot be moved into itself.");
    EXPECT_EQ(failure(folder, folder), "A folder cannot be moved into itself.");
    EXPECT_EQ(listing(source()), before);
}

TEST_P(RealMoves, whatIsGoneIsAnError) {
    EXPECT_EQ(failure(source().appending("gone"), target()), "No such file or directory");
    test::write(source().appending("a"), "A");
    EXPECT_EQ(failure(source().appending("a"), target().appending("gone")), "No such file or directory");
    EXPECT_EQ(failure(source().appending("a"), source().appending("a")), "Not a directory");
    EXPECT_EQ(listing(source()), "a = A\n");
}

TEST_P(RealMoves, aFolderOfTenThousandFilesGoesAsAWhole) {
    const FileUrl folder = source().appending("many");
    test::makeFolder(folder);
    for (int number = 0; number < 10'000; ++number)
        test::write(folder.appending(QByteArray::number(number)), QByteArray::number(number));
    const std::string before = listing(folder);
    ASSERT_EQ(failure(folder, target()), "");
    EXPECT_EQ(listing(target().appending("many")), before);
    EXPECT_EQ(listing(source()), "");
}

TEST_P(RealMoves, aDiskThatIsFullInMidCopyLeavesTheSourceAndNothingElse) {
    const FileUrl folder = source().appending("f");
    test::makeFolder(folder);
    test::write(folder.appending("a"), "small");
    test::write(folder.appending("b"), QByteArray(200'000, 'x'));
    const std::string before = listing(source());
    {
        const test::FullDisk full(100'000);
        EXPECT_EQ(failure(folder, target()), "File too large");
        EXPECT_EQ(failure(folder.appending("b"), target()), "File too large");
    }
    EXPECT_EQ(listing(source()), before);
    EXPECT_EQ(listing(target()), "");
}

TEST_P(RealMoves, aCopyThatIsGivenUpLeavesTheSourceAndNothingElse) {
    const FileUrl folder = source().appending("f");
    test::makeFolder(folder);
    for (const char *name : {"a", "b", "c"})
        test::write(folder.appending(name), "x");
    int looks = 0;
    const FileOutcome outcome = mover.move(folder, target(), [&looks] { return ++looks > 3; });
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, FileProblem::cancelled);
    EXPECT_EQ(listing(source()), "f/\nf/a = x\nf/b = x\nf/c = x\n");
    EXPECT_EQ(listing(target()), "");
}

TEST_P(RealMoves, withoutTheRightToWriteNothingHappens) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs another user to be";
    test::write(source().appending("a"), "A");
    for (const FileUrl &folder : {source(), target()})
        chmod(folder.path().constData(), 0755);
    ASSERT_EQ(seteuid(65534), 0);
    const FileOutcome outcome = move(source().appending("a"), target());
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, FileProblem::noPermission);
    EXPECT_EQ(listing(source()), "a = A\n");
    EXPECT_EQ(listing(target()), "");
}

TEST_P(RealMoves, aSourceThatMayNotBeRemovedLeavesBoth) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs another user to be";
    test::write(source().appending("a"), "A");
    chmod(source().path().constData(), 0755);
    chmod(target().path().constData(), 0777);
    ASSERT_EQ(seteuid(65534), 0);
    const FileOutcome outcome = move(source().appending("a"), target());
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, FileProblem::noPermission);
    EXPECT_EQ(listing(source()), "a = A\n");
    EXPECT_EQ(listing(target()), "a = A\n");
}

/// A small volume that nobody else sees and that goes with its owner.
class SmallVolume {
public:
    explicit SmallVolume(const FileUrl &folder, unsigned long flags = 0) : path_(folder.path()) {
        isMounted_ = unshare(CLONE_NEWNS) == 0 &&
                     mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                     mount("none", path_.constData(), "tmpfs", flags, "size=1m") == 0;
    }
    ~SmallVolume() {
        if (isMounted_)
            umount2(path_.constData(), MNT_DETACH);
    }
    SmallVolume(const SmallVolume &) = delete;
    SmallVolume &operator=(const SmallVolume &) = delete;
    explicit operator bool() const { return isMounted_; }

private:
    const QByteArray path_;
    bool isMounted_;
};

TEST_P(RealMoves, aVolumeWithoutRoomIsToldAsSuchAndLeftClean) {
    const SmallVolume volume(target());
    if (!volume)
        GTEST_SKIP() << "may not mount";
    const FileUrl folder = source().appending("f");
    test::makeFolder(folder);
    test::write(folder.appending("a"), QByteArray(600'000, 'a'));
    test::write(folder.appending("b"), QByteArray(600'000, 'b'));
    const FileOutcome outcome = move(folder, target());
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->problem, FileProblem::noSpace);
    EXPECT_EQ(listing(target()), "");
    EXPECT_EQ(test::read(folder.appending("b")), QByteArray(600'000, 'b'));
}

TEST_P(RealMoves, aVolumeThatCannotBeWrittenIsAnErrorOfItsOwn) {
    const SmallVolume volume(target(), MS_RDONLY);
    if (!volume)
        GTEST_SKIP() << "may not mount";
    test::write(source().appending("a"), "A");
    EXPECT_EQ(failure(source().appending("a"), target()), "Read-only file system");
    EXPECT_EQ(listing(source()), "a = A\n");
}

TEST_P(RealMoves, theSameDiskUnderAnotherMountIsAnotherVolume) {
    const FileUrl other = target();
    const FileUrl behind = source().appending("behind");
    test::makeFolder(behind);
    if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount(behind.path().constData(), other.path().constData(), nullptr, MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "may not mount";
    test::write(source().appending("a"), "A");
    EXPECT_EQ(statusOf(source()).st_dev, statusOf(other).st_dev);
    EXPECT_EQ(failure(source().appending("a"), other), "");
    EXPECT_EQ(listing(source()), "behind/\nbehind/a = A\n");
    umount2(other.path().constData(), MNT_DETACH);
}

TEST_P(RealMoves, aFolderDoesNotGoIntoAVolumeThatIsMountedInIt) {
    const FileUrl folder = source().appending("f");
    const FileUrl within = folder.appending("mounted");
    test::makeFolder(within);
    const SmallVolume volume(within);
    if (!volume)
        GTEST_SKIP() << "may not mount";
    EXPECT_EQ(failure(folder, within), "A folder cannot be moved into itself.");
    EXPECT_EQ(listing(within), "");
}

INSTANTIATE_TEST_SUITE_P(Ways, RealMoves, testing::Bool(),
                         [](const auto &info) { return info.param ? "fromHereToThere" : "fromThereToHere"; });

}  // namespace
}  // namespace pimloft
