// SPDX-License-Identifier: MIT
#include "platform/pasteboard/copied_files.h"

#include "support/qt_printers.h"

#include <QSysInfo>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct UriList {
    const char *name;
    QByteArray list;
    QByteArray fileUrls;  ///< empty: it names no file
};

class UriListTest : public testing::TestWithParam<UriList> {};

TEST_P(UriListTest, namesTheLocalFilesOfAUriList) {
    EXPECT_EQ(fileUrlsOfUriList(GetParam().list).value_or(QByteArray()), GetParam().fileUrls);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, UriListTest,
    testing::Values(
        UriList{"ofAFileManager", "file:///a\r\nfile:///b\r\n", "file:///a\nfile:///b"},
        UriList{"withLineFeedsOnly", "file:///a\nfile:///b", "file:///a\nfile:///b"},
        UriList{"withComments", "# two\r\nfile:///a\r\n#file:///b\r\n", "file:///a"},
        UriList{"withANulAtItsEnd", QByteArray("file:///a\r\n\0", 12), "file:///a"},
        UriList{"withASpaceAtItsEnd", "file:///a \r\n", "file:///a"},
        UriList{"withASpaceAfterItsEnd", "file:///a\r\n ", "file:///a"},
        UriList{"withASignInAName", "file:///a%231\r\n", "file:///a%231"},
        UriList{"withEscapes", "file:///My%20Files/%C3%A4", "file:///My%20Files/%C3%A4"},
        UriList{"withoutEscapes", "file:///My Files/\xc3\xa4", "file:///My%20Files/%C3%A4"},
        UriList{"withAPathThatIsNoText", "file:///caf%E9", "file:///caf%E9"},
        UriList{"withTheLocalHost", "file://localhost/a", "file:///a"},
        UriList{"withAnotherHost", "file://elsewhere.example/a", ""},
        UriList{"withOneSlash", "file:/a", "file:///a"}, UriList{"withCapitals", "FILE:///a", "file:///a"},
        UriList{"ofAnythingElse", "https://example.org/a\r\nfile:///a\r\ntrash:///b\r\n", "file:///a"},
        UriList{"withAnEscapedSlash", "file:///a%2Fb", ""}, UriList{"withAnEscapedNul", "file:///a%00b", ""},
        UriList{"withABrokenEscape", "file:///a%zz", ""}, UriList{"withARelativePath", "a/b", ""},
        UriList{"withNothing", "", ""}, UriList{"withEmptyLines", "\r\n\r\nfile:///a\r\n\r\n", "file:///a"}),
    [](const auto &each) { return each.param.name; });

TEST(CopiedFiles, areUnderstoodWhetherTheyAreToBeCopiedOrMoved) {
    EXPECT_EQ(fileUrlsOfCopiedFiles("copy\nfile:///a\nfile:///b"), QByteArray("file:///a\nfile:///b"));
    EXPECT_EQ(fileUrlsOfCopiedFiles("cut\r\nfile:///a\r\n"), QByteArray("file:///a"));
}

TEST(CopiedFiles, areRefusedWhereNothingSaysWhatIsToBecomeOfThem) {
    EXPECT_EQ(fileUrlsOfCopiedFiles("file:///a\nfile:///b"), std::nullopt);
    EXPECT_EQ(fileUrlsOfCopiedFiles("copy"), std::nullopt);
    EXPECT_EQ(fileUrlsOfCopiedFiles(""), std::nullopt);
}

TEST(CopiedFiles, areWrittenAsFileManagersReadThem) {
    const QByteArray urls = "file:///a%20b\nfile:///c";
    EXPECT_EQ(uriList(urls), QByteArray("file:///a%20b\r\nfile:///c\r\n"));
    EXPECT_EQ(copiedFiles(urls), QByteArray("copy\nfile:///a%20b\nfile:///c"));
    EXPECT_EQ(filePaths(urls), QByteArray("/a b\n/c"));
}

TEST(CopiedFiles, haveThePathsThatTheirBytesSay) {
    EXPECT_EQ(localPaths("file:///a%20b%0Ac\nfile:///caf%E9"),
              (std::vector<QByteArray>{"/a b\nc", "/caf\xe9"}));
    EXPECT_TRUE(localPaths("").empty());
}

TEST(CopiedFiles, areThisComputersWhereItsNameIsGiven) {
    const QByteArray name = QSysInfo::machineHostName().toUtf8();
    EXPECT_EQ(localPaths("file://" + name + "/a\nfile://elsewhere.example/b"), std::vector<QByteArray>{"/a"});
}

TEST(CopiedFiles, comeBackAsTheyWere) {
    const QByteArray urls = "file:///a%20b\nfile:///caf%E9";
    EXPECT_EQ(fileUrlsOfUriList(uriList(urls)), urls);
    EXPECT_EQ(fileUrlsOfCopiedFiles(copiedFiles(urls)), urls);
}

}  // namespace
}  // namespace pimloft
