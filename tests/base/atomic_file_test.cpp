// SPDX-License-Identifier: MIT
#include "base/atomic_file.h"

#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace pimloft {
namespace {

int mode(const QString &path) {
    struct stat info {};
    stat(QFile::encodeName(path).constData(), &info);
    return info.st_mode & 0777;
}

QByteArray content(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

TEST(AtomicFile, makesItsFoldersForThisUserOnly) {
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("a/b/file"));
    EXPECT_EQ(writeAtomically(path, "text"), std::nullopt);
    EXPECT_EQ(content(path), "text");
    EXPECT_EQ(mode(path), 0600);
    EXPECT_EQ(mode(root.filePath(QStringLiteral("a"))), 0700);
    EXPECT_EQ(mode(root.filePath(QStringLiteral("a/b"))), 0700);
}

TEST(AtomicFile, narrowsAFileThatWasReadableByOthers) {
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("file"));
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.close();
    chmod(QFile::encodeName(path).constData(), 0644);
    EXPECT_EQ(writeAtomically(path, "new"), std::nullopt);
    EXPECT_EQ(mode(path), 0600);
}

TEST(AtomicFile, leavesNothingBesideTheFile) {
    const QTemporaryDir root;
    EXPECT_EQ(writeAtomically(root.filePath(QStringLiteral("file")), "1"), std::nullopt);
    EXPECT_EQ(writeAtomically(root.filePath(QStringLiteral("file")), "2"), std::nullopt);
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("file")});
}

class AtomicFileOnAFullDisk : public testing::TestWithParam<int> {};

TEST_P(AtomicFileOnAFullDisk, keepsTheOldContent) {
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("file"));
    ASSERT_EQ(writeAtomically(path, "old"), std::nullopt);
    {
        const test::FullDisk full(GetParam() / 2);
        EXPECT_EQ(writeAtomically(path, QByteArray(GetParam(), 'x')), QStringLiteral("File too large"));
    }
    EXPECT_EQ(content(path), "old");
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("file")});
}

// Below and above what a file buffers.
INSTANTIATE_TEST_SUITE_P(AtomicFile, AtomicFileOnAFullDisk, testing::Values(10, 10'000'000));

TEST(AtomicFile, describesWhyAFileCannotBeReplaced) {
    const QTemporaryDir root;
    ASSERT_TRUE(QDir(root.path()).mkdir(QStringLiteral("folder")));
    const auto failure = writeAtomically(root.filePath(QStringLiteral("folder")), "text");
    ASSERT_TRUE(failure.has_value());
    EXPECT_FALSE(failure->isEmpty());
    EXPECT_TRUE(QFileInfo(root.filePath(QStringLiteral("folder"))).isDir());
}

}  // namespace
}  // namespace pimloft
