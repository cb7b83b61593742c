// SPDX-License-Identifier: MIT
#include "base/file_url.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

FileUrl url(const QByteArray &path) {
    return FileUrl::fromPath(path).value();
}

TEST(FileUrl, isMadeOfAnAbsolutePathOnly) {
    EXPECT_TRUE(FileUrl::fromPath("/home/a b"));
    EXPECT_FALSE(FileUrl::fromPath("home"));
    EXPECT_FALSE(FileUrl::fromPath(""));
    EXPECT_FALSE(FileUrl::fromPath(QByteArray("/a\0b", 4)));
}

TEST(FileUrl, slashesAtTheEndDoNotCount) {
    EXPECT_EQ(url("/home/folder//"), url("/home/folder"));
    EXPECT_EQ(url("//").path(), "/");
    EXPECT_EQ(url("/home/folder/").lastPathComponent(), "folder");
}

TEST(FileUrl, keepsEveryByteThatANameCanHave) {
    QByteArray name;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/')
            name += char(byte);
    const FileUrl file = url("/tmp/" + name);
    EXPECT_EQ(file.lastPathComponent(), name);
    EXPECT_EQ(FileUrl::fromText(QString::fromLatin1(file.encoded())), file);
    for (const char byte : file.encoded())
        EXPECT_TRUE(byte > ' ' && byte < 127);
}

TEST(FileUrl, readsAPathAsItStands) {
    EXPECT_EQ(FileUrl::fromText(QStringLiteral("/home/ä 100%25 \"x\"")), url("/home/ä 100%25 \"x\""));
    EXPECT_EQ(FileUrl::fromText(QStringLiteral("/a\nb/")), url("/a\nb"));
}

TEST(FileUrl, readsAUrlOfThisComputer) {
    EXPECT_EQ(FileUrl::fromText(QStringLiteral("file:///tmp/%FF%20x")), url("/tmp/\xFF x"));
    EXPECT_EQ(FileUrl::fromText(QStringLiteral("file://localhost/tmp")), url("/tmp"));
    EXPECT_FALSE(FileUrl::fromText(QStringLiteral("file://elsewhere/tmp")));
    EXPECT_FALSE(FileUrl::fromText(QStringLiteral("file://")));
    EXPECT_FALSE(FileUrl::fromText(QStringLiteral("file:///a%00b")));
    EXPECT_FALSE(FileUrl::fromText(QStringLiteral("trash:///a")));
}

TEST(FileUrl, knowsItsFolderAndItsEntries) {
    EXPECT_EQ(url("/a/b").folder(), url("/a"));
    EXPECT_EQ(url("/a").folder(), url("/"));
    EXPECT_EQ(url("/").appending("a"), url("/a"));
    EXPECT_EQ(url("/a").appending("b c"), url("/a/b c"));
    EXPECT_EQ(url("/").lastPathComponent(), "");
}

TEST(FileUrl, showsBytesThatAreNoTextAsReplacements) {
    EXPECT_EQ(url("/tmp/\xFF.txt").name(), QStringLiteral("\uFFFD.txt"));
}

}  // namespace
}  // namespace pimloft
