// SPDX-License-Identifier: MIT
#include "base/regular_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace pimloft {
namespace {

class RegularFile : public testing::Test {
protected:
    QString path(const char *name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QString make(const QByteArray &content) const {
        QFile file(path("file"));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
        return file.fileName();
    }

    QTemporaryDir folder_;
};

TEST_F(RegularFile, isReadWholeUpToTheLimit) {
    EXPECT_EQ(readRegularFile(make("12345"), 5), QByteArray("12345"));
    EXPECT_EQ(readRegularFile(make("12345"), 4), std::nullopt);
    EXPECT_EQ(readRegularFile(make(""), 4), QByteArray(""));
}

TEST_F(RegularFile, mayBeReachedByALink) {
    ASSERT_TRUE(QFile::link(make("text"), path("link")));
    EXPECT_EQ(readRegularFile(path("link"), 10), QByteArray("text"));
}

TEST_F(RegularFile, isNothingElse) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    for (const QString &other : {path("pipe"), path("missing"), folder_.path(), QStringLiteral("/dev/zero")})
        EXPECT_EQ(readRegularFile(other, 10), std::nullopt) << other.toStdString();
}

}  // namespace
}  // namespace pimloft
