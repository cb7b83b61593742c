// SPDX-License-Identifier: MIT
#include "base/atomic_file.h"

#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

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

TEST(AtomicFile, takesWhatIsWrittenToItsDescriptor) {
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("file"));
    const auto fill = [](int descriptor) -> std::optional<QString> {
        for (int part = 0; part < 3; ++part)
            EXPECT_EQ(writeFully(descriptor, "part "), 0);
        return std::nullopt;
    };
    ASSERT_EQ(writeAtomically(path, fill), std::nullopt);
    EXPECT_EQ(content(path), "part part part ");
}

TEST(AtomicFile, keepsTheOldContentWhenTheFillingFails) {
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("file"));
    ASSERT_EQ(writeAtomically(path, "old"), std::nullopt);
    const auto fill = [](int descriptor) -> std::optional<QString> {
        writeFully(descriptor, "half of it");
        return QStringLiteral("no more");
    };
    EXPECT_EQ(writeAtomically(path, fill), QStringLiteral("no more"));
    EXPECT_EQ(content(path), "old");
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("file")});
}

TEST(AtomicFile, tellsWhyADescriptorCannotBeWrittenTo) {
    EXPECT_EQ(writeFully(-1, "x"), EBADF);
    EXPECT_EQ(errorText(EBADF), QStringLiteral("Bad file descriptor"));
}

TEST(AtomicFile, leavesALinkWhatItIs) {
    const QTemporaryDir root;
    const QString link = root.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QDir(root.path()).mkdir(QStringLiteral("elsewhere")));
    const QString file = root.filePath(QStringLiteral("elsewhere/file"));
    ASSERT_TRUE(QFile::link(QStringLiteral("elsewhere/file"), link));
    const QString chained = root.filePath(QStringLiteral("chained"));
    ASSERT_TRUE(QFile::link(link, chained));
    // At first it leads nowhere.
    for (const QString &name : {link, link, chained}) {
        ASSERT_EQ(writeAtomically(name, name.toUtf8()), std::nullopt);
        EXPECT_EQ(content(file), name.toUtf8());
        EXPECT_TRUE(QFileInfo(link).isSymLink());
        EXPECT_TRUE(QFileInfo(chained).isSymLink());
    }
}

TEST(AtomicFile, removesOnlyWhatWritesOfThisFileHaveLeft) {
    const QTemporaryDir root;
    for (const char *name : {"file", "file.pimloft-aBcDeF", "other.pimloft-aBcDeF"})
        ASSERT_EQ(writeAtomically(root.filePath(QString::fromLatin1(name)), "x"), std::nullopt);
    removeAbandonedWrites(root.filePath(QStringLiteral("file")));
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files, QDir::Name).join(u' '),
              QStringLiteral("file other.pimloft-aBcDeF"));
}

TEST(AtomicFile, leavesTheCopiesAloneThatTheUserHasMade) {
    const QTemporaryDir root;
    for (const char *name : {"file.backup", "file.pimloft-old", "file.pimloft-backups"})
        ASSERT_EQ(writeAtomically(root.filePath(QString::fromLatin1(name)), "x"), std::nullopt);
    removeAbandonedWrites(root.filePath(QStringLiteral("file")));
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files, QDir::Name).join(u' '),
              QStringLiteral("file.backup file.pimloft-backups file.pimloft-old"));
}

}  // namespace
}  // namespace pimloft
