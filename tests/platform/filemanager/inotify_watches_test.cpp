// SPDX-License-Identifier: MIT
#include "platform/filemanager/inotify_watches.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

namespace pimloft {
namespace {

TEST(InotifyWatches, areReadFromTheKernelsText) {
    const QByteArray info = "pos:\t0\nflags:\t02004000\nmnt_id:\t15\nino:\t1059\n"
                            "inotify wd:4 ino:a8a596 sdev:fe00000 mask:fce ignored_mask:0 fhandle-bytes:8 "
                            "fhandle-type:1 f_handle:96a5a800248f27a8\n"
                            "inotify wd:1 ino:13 sdev:1a mask:fce\n";
    EXPECT_EQ(inotifyWatches(info), (std::vector<InotifyWatch>{{0xa8a596, 0xfe00000}, {0x13, 0x1a}}));
}

TEST(InotifyWatches, areNoneInAnythingElse) {
    for (const QByteArray info :
         {"", "inotify wd:4", "inotify ino:xyz sdev:1", "eventfd-count: 0\n", "inotify "})
        EXPECT_TRUE(inotifyWatches(info).empty()) << info.toStdString();
}

TEST(InotifyWatches, tellWhichFoldersAProcessFollows) {
    const QTemporaryDir folder;
    const QByteArray followed = QFile::encodeName(folder.path());
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("inner")));
    const int watcher = inotify_init1(IN_CLOEXEC);
    ASSERT_GE(inotify_add_watch(watcher, followed.constData(), IN_CREATE), 0);
    const auto watches = inotifyWatches(ProcessId(getpid()));
    EXPECT_TRUE(isWatched(followed, watches));
    EXPECT_FALSE(isWatched(followed + "/inner", watches));
    EXPECT_FALSE(isWatched(followed + "/none", watches));
    close(watcher);
    EXPECT_FALSE(isWatched(followed, inotifyWatches(ProcessId(getpid()))));
}

TEST(InotifyWatches, areNoneOfAProcessThatIsGone) {
    EXPECT_TRUE(inotifyWatches(ProcessId(0x7fffffff)).empty());
}

}  // namespace
}  // namespace pimloft
