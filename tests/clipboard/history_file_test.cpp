// SPDX-License-Identifier: MIT
#include "clipboard/history_file.h"

#include "entries.h"
#include "support/full_disk.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pimloft {
namespace {

using test::areTheSame;
using test::contentOf;
using test::text;
using test::writeFile;

/// A history file in a folder of its own, and the entries that are to be in it.
struct History {
    std::optional<QString> save() {
        places.resize(items.size());
        return file->save(items.size(), [this](std::size_t index) -> HistoryFile::Entry {
            return {items[index], places[index]};
        });
    }
    void addOnTop(const ClipboardItem &item) {
        items.insert(items.begin(), item);
        places.insert(places.begin(), HistoryPlace{});
    }
    void remove(std::size_t index) {
        items.erase(items.begin() + std::ptrdiff_t(index));
        places.erase(places.begin() + std::ptrdiff_t(index));
    }
    /// What another run would read.
    std::vector<ClipboardItem> read() const {
        std::vector<ClipboardItem> found;
        const auto failure = HistoryFile(path).load(found);
        EXPECT_EQ(failure, std::nullopt) << failure.value_or(QString()).toStdString();
        return found;
    }
    /// What a first save of the same entries writes.
    QByteArray encodedAfresh() const {
        History other;
        other.items = items;
        other.save();
        return contentOf(other.path);
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("history.json"));
    std::optional<HistoryFile> file = std::make_optional<HistoryFile>(path);
    std::vector<ClipboardItem> items;
    std::vector<HistoryPlace> places;
};

/// Replaces every byte of the file, which stays the same one.
void scribbleOver(const QString &path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(QByteArray(file.size(), '#'));
    file.close();
    // The clock of the file system is coarse: a change within its tick is told by its time only when that
    // moved.
    const timespec later[2] = {{0, UTIME_NOW}, {1, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(path).constData(), later, 0), 0);
}

std::vector<ClipboardItem> everyKind() {
    const auto id = [](char digit) {
        return QUuid(QString(8, QLatin1Char(digit)) + QStringLiteral("-2222-3333-4444-AABBCCDDEEFF"));
    };
    return {
        {id('1'),
         TextContent{QStringLiteral("A \"quoted\" \\ word/path\n\t\u0001\u001F\u00E9\U0001F600")},
         QStringLiteral("Text Editor"),
         QStringLiteral("org.example.TextEditor"),
         {700'000'000},
         false},
        {id('2'), RichTextContent{"{\\rtf1}"}, QStringLiteral("Unknown"), {}, {700'000'000.25}, true},
        {id('3'), ImageContent{"\x89PNG\xFF\xFF\xFF"}, QStringLiteral("Viewer"), {}, {-0.5}, false},
        {id('4'),
         FileURLContent{QUrl::fromLocalFile(QStringLiteral("/home/me/a b\u00E9%.txt"))},
         QStringLiteral("Files"),
         {},
         {763'934'400.123456},
         false},
        {id('5'), HtmlContent{QStringLiteral("<p>x</p>")}, {}, {}, {0}, false},
    };
}

TEST(HistoryFile, hasExactlyTheSettledForm) {
    History history;
    history.items = everyKind();
    ASSERT_EQ(history.save(), std::nullopt);
    EXPECT_EQ(contentOf(history.path).toStdString(),
              contentOf(QStringLiteral(GOLDEN_FILES "/every_kind.json")).toStdString());
}

TEST(HistoryFile, readsBackWhatItHasWritten) {
    History history;
    history.items = everyKind();
    history.save();
    EXPECT_TRUE(areTheSame(history.read(), history.items));
}

TEST(HistoryFile, isTwoCharactersForAnEmptyHistory) {
    History history;
    history.save();
    EXPECT_EQ(contentOf(history.path), "[]");
}

TEST(HistoryFile, keepsEveryCharacterAndByte) {
    History history;
    QString all;
    for (char32_t code = 0; code < 0x30000; ++code)
        if (!QChar::isSurrogate(code))
            all += QString::fromUcs4(&code, 1);
    history.items = {text(all), test::entry(HtmlContent{all}),
                     test::entry(ImageContent{test::noise(200'000, 1)}), test::entry(RichTextContent{{}}),
                     text({})};
    history.save();
    EXPECT_TRUE(areTheSame(history.read(), history.items));
}

TEST(HistoryFile, keepsLongTextsWhoseCharactersLieAcrossTheEdgesOfItsBuffers) {
    History history;
    for (int shift = 0; shift < 4; ++shift) {
        history.items.push_back(
            text(QString(shift, u'x') + QStringLiteral("\U0001F600\u00E9/").repeated(100'000)));
        history.items.push_back(test::entry(ImageContent{QByteArray(300'000 + shift, '\xFF')}));
    }
    history.save();
    EXPECT_TRUE(areTheSame(history.read(), history.items));
}

struct Date {
    double seconds;
    const char *text;
};
class HistoryDate : public testing::TestWithParam<Date> {};

TEST_P(HistoryDate, isTheShortestNumberThatIsReadBackTheSame) {
    History history;
    history.items = {text({})};
    history.items.front().timestamp.seconds = GetParam().seconds;
    history.save();
    EXPECT_TRUE(contentOf(history.path).contains(QByteArray("\"timestamp\":") + GetParam().text + ","))
        << contentOf(history.path).constData();
    EXPECT_TRUE(areTheSame(history.read(), history.items));
}

INSTANTIATE_TEST_SUITE_P(HistoryFile, HistoryDate,
                         testing::Values(Date{0, "0"}, Date{7e8, "700000000"}, Date{-1, "-1"},
                                         Date{0.1, "0.1"}, Date{0.1 + 0.2, "0.30000000000000004"},
                                         Date{763934400.123, "763934400.123"},
                                         Date{763934400.1234567, "763934400.1234567"}, Date{0.0001, "0.0001"},
                                         Date{0.00001, "1e-05"}, Date{1e15, "1000000000000000"},
                                         Date{1e16, "10000000000000000"}, Date{1e17, "1e+17"}));

TEST(HistoryFile, refusesADateThatIsNoNumber) {
    History history;
    history.items = {text({})};
    history.save();
    history.items.push_back(text({}));
    history.items.back().timestamp.seconds = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(history.save(), QStringLiteral("A date that is not a number cannot be written."));
    EXPECT_EQ(history.read().size(), 1u);
    EXPECT_EQ(history.files(), QStringList{QStringLiteral("history.json")});
}

TEST(HistoryFile, copiesWhatHasNotChanged) {
    History history;
    for (int index = 0; index < 10; ++index)
        history.items.push_back(text(QString::number(index)));
    history.save();
    history.addOnTop(text(QStringLiteral("new")));
    history.remove(4);
    history.remove(9);
    history.items[3].isPinned = true;
    history.places[3] = {};
    std::swap(history.items[6], history.items[7]);
    std::swap(history.places[6], history.places[7]);
    for (int run = 0; run < 3; ++run) {
        ASSERT_EQ(history.save(), std::nullopt);
        EXPECT_EQ(contentOf(history.path).toStdString(), history.encodedAfresh().toStdString());
        history.remove(0);
    }
}

TEST(HistoryFile, doesNotEncodeAnEntryAgainWhosePlaceIsKnown) {
    History history;
    history.items = {text(QStringLiteral("first")), text(QStringLiteral("other"))};
    history.save();
    // Nobody changes an entry without saying so; here it shows where the bytes come from.
    history.items[1] = text(QStringLiteral("swapped"));
    history.save();
    EXPECT_EQ(test::summary(history.read()), "first, other");
}

TEST(HistoryFile, isEncodedAnewWhenSomebodyHasReplacedIt) {
    History history;
    history.items = {text(QStringLiteral("a")), text(QStringLiteral("b"))};
    history.save();
    QFile::remove(history.path);
    writeFile(history.path, "somebody else's, and longer than what was there before");
    history.addOnTop(text(QStringLiteral("c")));
    ASSERT_EQ(history.save(), std::nullopt);
    EXPECT_EQ(test::summary(history.read()), "c, a, b");
}

TEST(HistoryFile, isEncodedAnewWhenSomebodyHasWrittenIntoIt) {
    History history;
    history.items = {text(QStringLiteral("a")), text(QStringLiteral("b"))};
    history.save();
    scribbleOver(history.path);
    history.addOnTop(text(QStringLiteral("c")));
    ASSERT_EQ(history.save(), std::nullopt);
    EXPECT_EQ(test::summary(history.read()), "c, a, b");
}

TEST(HistoryFile, isEncodedAnewWhenSomebodyWritesIntoItWhileItIsCopied) {
    History history;
    history.items = {text(QStringLiteral("a")), text(QStringLiteral("b"))};
    history.save();
    history.addOnTop(text(QStringLiteral("c")));
    bool isTouched = false;
    const auto failure = history.file->save(3, [&](std::size_t index) -> HistoryFile::Entry {
        if (!std::exchange(isTouched, true))
            scribbleOver(history.path);
        return {history.items[index], history.places[index]};
    });
    EXPECT_EQ(failure, std::nullopt);
    EXPECT_EQ(test::summary(history.read()), "c, a, b");
}

TEST(HistoryFile, isEncodedAnewWhenItHasBeenCutOffOrRemoved) {
    History history;
    history.items = {text(QStringLiteral("a")), text(QStringLiteral("b"))};
    history.save();
    ASSERT_EQ(truncate(QFile::encodeName(history.path).constData(), 3), 0);
    ASSERT_EQ(history.save(), std::nullopt);
    EXPECT_EQ(test::summary(history.read()), "a, b");
    QFile::remove(history.path);
    ASSERT_EQ(history.save(), std::nullopt);
    EXPECT_EQ(test::summary(history.read()), "a, b");
}

TEST(HistoryFile, keepsTheOldFileOnAFullDiskAndGoesOnWhenThereIsRoom) {
    History history;
    history.items = {test::entry(ImageContent{test::noise(300'000, 1)}), text(QStringLiteral("a"))};
    history.save();
    const QByteArray before = contentOf(history.path);
    history.addOnTop(test::entry(ImageContent{test::noise(300'000, 2)}));
    for (const rlim_t limit : {10u, 100'000u, 700'000u}) {
        const test::FullDisk full(limit);
        EXPECT_EQ(history.save(), QStringLiteral("File too large"));
        EXPECT_EQ(contentOf(history.path), before);
        EXPECT_EQ(history.files(), QStringList{QStringLiteral("history.json")});
    }
    ASSERT_EQ(history.save(), std::nullopt);
    EXPECT_TRUE(areTheSame(history.read(), history.items));
}

TEST(HistoryFile, isReadableByItsUserOnly) {
    History history;
    const QString deep = history.folder.filePath(QStringLiteral("a/b/history.json"));
    history.file.emplace(deep);
    ASSERT_EQ(history.save(), std::nullopt);
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(deep).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
    ASSERT_EQ(stat(QFile::encodeName(history.folder.filePath(QStringLiteral("a"))).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
}

TEST(HistoryFile, thatIsMissingHoldsNothingAndIsNoFailure) {
    std::vector<ClipboardItem> items;
    const QTemporaryDir folder;
    EXPECT_EQ(HistoryFile(folder.filePath(QStringLiteral("none"))).load(items), std::nullopt);
    writeFile(folder.filePath(QStringLiteral("file")), "");
    EXPECT_EQ(HistoryFile(folder.filePath(QStringLiteral("file/none"))).load(items), std::nullopt);
    EXPECT_TRUE(items.empty());
}

TEST(HistoryFile, thatIsNoFileCannotBeRead) {
    std::vector<ClipboardItem> items;
    const QTemporaryDir folder;
    EXPECT_EQ(HistoryFile(folder.path()).load(items), QStringLiteral("Is a directory"));
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(HistoryFile(pipe).load(items), QStringLiteral("It is not a file."));
    const QString loop = folder.filePath(QStringLiteral("loop"));
    ASSERT_TRUE(QFile::link(loop, loop));
    EXPECT_EQ(HistoryFile(loop).load(items), QStringLiteral("Too many levels of symbolic links"));
}

TEST(HistoryFile, thatIsHugeAndEmptyInsideIsGivenUpAtOnce) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("huge"));
    writeFile(path, "[");
    ASSERT_EQ(truncate(QFile::encodeName(path).constData(), off_t(1) << 40), 0);
    std::vector<ClipboardItem> items;
    EXPECT_NE(HistoryFile(path).load(items), std::nullopt);
}

TEST(HistoryFile, removesWhatAKilledRunHasLeftButNotWhatOneIsWriting) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("history.json"));
    writeFile(path, "[]");
    writeFile(path + QStringLiteral(".pimloft-aBcdEf"), "[{");
    writeFile(path + QStringLiteral(".bak"), "mine");
    QFile busy(path + QStringLiteral(".pimloft-qWertY"));
    ASSERT_TRUE(busy.open(QIODevice::WriteOnly));
    ASSERT_EQ(flock(busy.handle(), LOCK_EX), 0);
    const HistoryFile file(path);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name).join(u' '),
              QStringLiteral("history.json history.json.bak history.json.pimloft-qWertY"));
}

}  // namespace
}  // namespace pimloft
