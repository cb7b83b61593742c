// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_store.h"

#include "app/process.h"
#include "app/settings_keys.h"
#include "entries.h"
#include "platform/fake_desktop.h"
#include "support/full_disk.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace pimloft {
namespace {

using test::contentOf;
using test::pinned;
using test::summary;
using test::text;

/// A store on preferences and a folder of its own, filled from the oldest entry to the newest.
class ClipboardStoreTest : public testing::Test {
protected:
    ClipboardStoreTest() { reload(); }

    void reload() { store.emplace(desktop.preferences, folder.path()); }
    void fill(const std::vector<ClipboardItem> &newestFirst) {
        for (auto item = newestFirst.rbegin(); item != newestFirst.rend(); ++item)
            store->add(*item);
    }
    void setLimit(int limit) { desktop.preferences.stored[SettingsKeys::clipboardMaxItems] = limit; }
    std::string shown() const { return summary(store->items()); }
    std::string found(const QString &query) {
        store->setSearchQuery(query);
        std::vector<ClipboardItem> items;
        for (const ClipboardItem *item : store->filteredItems())
            items.push_back(*item);
        return summary(items);
    }
    QByteArray file() const { return contentOf(path); }
    /// Makes a save visible by the file coming back.
    void forgetFile() { QFile::remove(path); }
    bool wasSaved() const { return QFile::exists(path); }

    FakeDesktop desktop;
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("clipboard_history.json"));
    std::optional<ClipboardStore> store;
};

TEST_F(ClipboardStoreTest, startsEmptyAndSaysNothingWithoutAFile) {
    testing::internal::CaptureStdout();
    reload();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(store->items().empty());
    EXPECT_EQ(store->searchQuery(), QString());
    EXPECT_FALSE(wasSaved());
}

TEST_F(ClipboardStoreTest, putsTheNewestOnTop) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B")), text(QStringLiteral("C"))});
    EXPECT_EQ(shown(), "A, B, C");
}

TEST_F(ClipboardStoreTest, keepsOneEntryOfTheSameTextCopiedTwiceAndWritesNothing) {
    const ClipboardItem first = text(QStringLiteral("A"));
    store->add(first);
    forgetFile();
    QSignalSpy changed(&*store, &ClipboardStore::itemsChanged);
    store->add(text(QStringLiteral("A")));
    EXPECT_EQ(shown(), "A");
    EXPECT_EQ(store->items().front().id, first.id);
    EXPECT_FALSE(wasSaved());
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(ClipboardStoreTest, movesATextThatIsCopiedAgainToTheTopAsANewEntry) {
    ClipboardItem again = text(QStringLiteral("A"));
    again.timestamp.seconds = 8e8;
    again.sourceApp = QStringLiteral("Other");
    fill({text(QStringLiteral("B")), text(QStringLiteral("A"))});
    store->add(again);
    EXPECT_EQ(shown(), "A, B");
    EXPECT_TRUE(test::areTheSame(store->items().front(), again));
}

TEST_F(ClipboardStoreTest, keepsAPinnedEntryWhoseContentIsCopiedAgain) {
    fill({text(QStringLiteral("B")), pinned(text(QStringLiteral("A")))});
    store->add(text(QStringLiteral("A")));
    EXPECT_EQ(shown(), "A, B, A*");
}

TEST_F(ClipboardStoreTest, keepsThePinnedNewestEntryWhenItIsCopiedAgain) {
    store->add(pinned(text(QStringLiteral("A"))));
    store->add(text(QStringLiteral("A")));
    EXPECT_EQ(shown(), "A*");
}

TEST_F(ClipboardStoreTest, takesTheSameTextAsHtmlForSomethingElse) {
    store->add(text(QStringLiteral("A")));
    store->add(test::entry(HtmlContent{QStringLiteral("A")}));
    EXPECT_EQ(store->items().size(), 2u);
}

TEST_F(ClipboardStoreTest, countsPinnedEntriesAgainstTheLimit) {
    fill({text(QStringLiteral("U1")), pinned(text(QStringLiteral("P1"))), text(QStringLiteral("U2")),
          text(QStringLiteral("U3"))});
    setLimit(3);
    store->add(text(QStringLiteral("U0")));
    EXPECT_EQ(shown(), "U0, U1, P1*");
}

TEST_F(ClipboardStoreTest, keepsEveryPinnedEntryAndLosesTheCopyWhenTheyAreMoreThanTheLimit) {
    fill({pinned(text(QStringLiteral("P1"))), pinned(text(QStringLiteral("P2"))),
          pinned(text(QStringLiteral("P3")))});
    setLimit(2);
    store->add(text(QStringLiteral("U")));
    EXPECT_EQ(shown(), "P1*, P2*, P3*");
}

TEST_F(ClipboardStoreTest, takesALimitOfZeroForFifty) {
    setLimit(0);
    for (int index = 0; index < 60; ++index)
        store->add(text(QString::number(index)));
    EXPECT_EQ(store->items().size(), 50u);
}

TEST_F(ClipboardStoreTest, takesAMissingLimitForFifty) {
    for (int index = 0; index < 60; ++index)
        store->add(text(QString::number(index)));
    EXPECT_EQ(store->items().size(), 50u);
    EXPECT_EQ(store->items().back().preview(), QStringLiteral("10"));
}

TEST_F(ClipboardStoreTest, trimsOnlyAtTheNextCopy) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B")), text(QStringLiteral("C"))});
    setLimit(1);
    EXPECT_EQ(shown(), "A, B, C");
    store->togglePin(store->items().back());
    EXPECT_EQ(shown(), "A, B, C*");
    setLimit(2);
    store->add(text(QStringLiteral("D")));
    EXPECT_EQ(shown(), "D, C*");
}

TEST_F(ClipboardStoreTest, pinsWhereTheEntryIsAndSaves) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B"))});
    forgetFile();
    store->togglePin(store->items().back());
    EXPECT_EQ(shown(), "A, B*");
    EXPECT_TRUE(wasSaved());
    store->togglePin(store->items().back());
    EXPECT_EQ(shown(), "A, B");
    reload();
    EXPECT_EQ(shown(), "A, B");
}

TEST_F(ClipboardStoreTest, doesAndWritesNothingWhenAnEntryToBePinnedIsGone) {
    store->add(text(QStringLiteral("A")));
    forgetFile();
    QSignalSpy changed(&*store, &ClipboardStore::itemsChanged);
    store->togglePin(text(QStringLiteral("A")));
    EXPECT_EQ(shown(), "A");
    EXPECT_FALSE(wasSaved());
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(ClipboardStoreTest, removesAnEntryAndSaves) {
    fill({text(QStringLiteral("A")), pinned(text(QStringLiteral("B"))), text(QStringLiteral("C"))});
    store->remove(store->items()[1]);
    EXPECT_EQ(shown(), "A, C");
    reload();
    EXPECT_EQ(shown(), "A, C");
}

TEST_F(ClipboardStoreTest, savesAlsoWhenTheEntryToBeRemovedIsGone) {
    store->add(text(QStringLiteral("A")));
    forgetFile();
    QSignalSpy changed(&*store, &ClipboardStore::itemsChanged);
    store->remove(text(QStringLiteral("A")));
    EXPECT_EQ(shown(), "A");
    EXPECT_TRUE(wasSaved());
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(ClipboardStoreTest, clearsAllButThePinnedEntries) {
    fill({pinned(text(QStringLiteral("P1"))), text(QStringLiteral("U1")), text(QStringLiteral("U2")),
          pinned(text(QStringLiteral("P2"))), text(QStringLiteral("U3")), text(QStringLiteral("U4")),
          text(QStringLiteral("U5"))});
    store->removeAll();
    EXPECT_EQ(shown(), "P1*, P2*");
    reload();
    EXPECT_EQ(shown(), "P1*, P2*");
}

TEST_F(ClipboardStoreTest, clearsAHistoryWithoutPinnedEntriesToAnEmptyList) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B"))});
    store->removeAll();
    EXPECT_TRUE(store->items().empty());
    EXPECT_EQ(file(), "[]");
}

TEST_F(ClipboardStoreTest, tellsEveryChangeOnce) {
    QSignalSpy changed(&*store, &ClipboardStore::itemsChanged);
    store->add(text(QStringLiteral("A")));
    store->togglePin(store->items().front());
    store->togglePin(store->items().front());
    store->add(text(QStringLiteral("B")));
    store->remove(store->items().front());
    store->removeAll();
    EXPECT_EQ(changed.count(), 6);
}

TEST_F(ClipboardStoreTest, canBeGivenItsOwnEntries) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B")), text(QStringLiteral("C"))});
    store->add(store->items().back());
    EXPECT_EQ(shown(), "C, A, B");
    store->remove(store->items().front());
    EXPECT_EQ(shown(), "A, B");
}

TEST_F(ClipboardStoreTest, findsTextWhateverItsCase) {
    fill({text(QStringLiteral("cat")), text(QStringLiteral("dog")), text(QStringLiteral("CAT")),
          text(QStringLiteral("\u00C9CAT"))});
    EXPECT_EQ(found(QStringLiteral("A")), "cat, CAT, \u00C9CAT");
    EXPECT_EQ(found(QStringLiteral("\u00C9")), "\u00C9CAT");
    EXPECT_EQ(found(QStringLiteral("OG")), "dog");
}

TEST_F(ClipboardStoreTest, showsEverythingInOrderWithoutASearch) {
    fill({text(QStringLiteral("A")), pinned(text(QStringLiteral("B"))), text(QStringLiteral("C"))});
    EXPECT_EQ(found({}), "A, B*, C");
}

TEST_F(ClipboardStoreTest, findsByTheSourceApplication) {
    ClipboardItem item = text(QStringLiteral("x"));
    item.sourceApp = QStringLiteral("Safari");
    fill({item, text(QStringLiteral("y"))});
    EXPECT_EQ(found(QStringLiteral("safari")), "x");
}

TEST_F(ClipboardStoreTest, looksOnlyIntoThePreview) {
    fill({text(QStringLiteral("one\ntwo\nthree"))});
    EXPECT_EQ(found(QStringLiteral("two")), "one\ntwo");
    EXPECT_EQ(found(QStringLiteral("three")), "");
}

TEST_F(ClipboardStoreTest, takesASpaceForSomethingToLookFor) {
    fill({text(QStringLiteral("a b")), text(QStringLiteral("ab"))});
    EXPECT_EQ(found(QStringLiteral(" ")), "a b");
}

TEST_F(ClipboardStoreTest, foldsNoAccents) {
    fill({text(QStringLiteral("caf\u00E9"))});
    EXPECT_EQ(found(QStringLiteral("cafe")), "");
}

TEST_F(ClipboardStoreTest, neverSavesTheSearch) {
    store->add(text(QStringLiteral("A")));
    forgetFile();
    QSignalSpy changed(&*store, &ClipboardStore::searchQueryChanged);
    store->setSearchQuery(QStringLiteral("x"));
    store->setSearchQuery(QStringLiteral("x"));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_FALSE(wasSaved());
}

TEST_F(ClipboardStoreTest, answersThePreviewOfItsOwnEntriesAndOfCopies) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B"))});
    const ClipboardItem copy = store->items().back();
    EXPECT_EQ(store->preview(store->items().back()), QStringLiteral("B"));
    EXPECT_EQ(store->preview(copy), QStringLiteral("B"));
    EXPECT_EQ(store->preview(text(QStringLiteral("C"))), QStringLiteral("C"));
}

TEST_F(ClipboardStoreTest, keepsTheFilesOrderAndAllOfItWhenLoading) {
    setLimit(1);
    const QByteArray same = R"("content":{"text":{"_0":"A"}},"sourceApp":"","isPinned":false,)"
                            R"("id":"11111111-2222-3333-4444-AABBCCDDEEFF","timestamp":)";
    test::writeFile(path, "[{" + same + "1},{" + same + "3},{" + same + "2}]");
    reload();
    EXPECT_EQ(shown(), "A, A, A");
    EXPECT_EQ(store->items()[1].timestamp.seconds, 3);
}

TEST_F(ClipboardStoreTest, treatsEntriesOfAForeignFileThatShareAnIdAsOne) {
    const QByteArray same = R"("sourceApp":"","isPinned":false,"timestamp":1,)"
                            R"("id":"11111111-2222-3333-4444-AABBCCDDEEFF","content":)";
    test::writeFile(path, "[{" + same + R"({"text":{"_0":"A"}}},{)" + same + R"({"text":{"_0":"B"}}}])");
    reload();
    store->add(text(QStringLiteral("C")));
    EXPECT_EQ(shown(), "C, A, B");
    store->togglePin(store->items().back());
    EXPECT_EQ(shown(), "C, A*, B");
    reload();
    EXPECT_EQ(shown(), "C, A*, B");
    store->remove(store->items().back());
    EXPECT_EQ(shown(), "C");
}

TEST_F(ClipboardStoreTest, reportsAFileThatItCannotReadAndLeavesItUntilTheNextSave) {
    test::writeFile(path, "[{");
    testing::internal::CaptureStdout();
    reload();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "ClipboardStore: Failed to load: Missing a name for object member.\n");
    EXPECT_TRUE(store->items().empty());
    EXPECT_EQ(file(), "[{");
    store->add(text(QStringLiteral("A")));
    reload();
    EXPECT_EQ(shown(), "A");
}

TEST_F(ClipboardStoreTest, losesTheWholeHistoryToOneEntryThatIsWrong) {
    fill({text(QStringLiteral("A")), text(QStringLiteral("B"))});
    test::writeFile(path, file().chopped(1) + ",{\"content\":{}}]");
    testing::internal::CaptureStdout();
    reload();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "ClipboardStore: Failed to load: Invalid number of keys found, expected one.\n");
    EXPECT_TRUE(store->items().empty());
}

TEST_F(ClipboardStoreTest, reportsADirectoryInThePlaceOfTheFile) {
    ASSERT_TRUE(QDir().mkdir(path));
    testing::internal::CaptureStdout();
    reload();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ClipboardStore: Failed to load: Is a directory\n");
}

TEST_F(ClipboardStoreTest, reportsAFullDiskAndKeepsTheEntries) {
    store->add(text(QStringLiteral("A")));
    const QByteArray before = file();
    testing::internal::CaptureStdout();
    {
        // Room for the line that reports it.
        const test::FullDisk full(1000);
        store->add(text(QStringLiteral("B\n\n") + QString(5000, u'x')));
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ClipboardStore: Failed to save: File too large\n");
    EXPECT_EQ(shown(), "B\n, A");
    EXPECT_EQ(file(), before);
    store->add(text(QStringLiteral("C")));
    reload();
    EXPECT_EQ(shown(), "C, B\n, A");
}

TEST_F(ClipboardStoreTest, goesOnWithoutAFolderAndReportsEachSave) {
    const QString blocked = folder.filePath(QStringLiteral("file"));
    test::writeFile(blocked, "");
    testing::internal::CaptureStdout();
    ClipboardStore other(desktop.preferences, blocked + QStringLiteral("/Pimloft"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    other.add(text(QStringLiteral("A")));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ClipboardStore: Failed to save: Not a directory\n");
    EXPECT_EQ(summary(other.items()), "A");
}

TEST_F(ClipboardStoreTest, makesItsFolderForItsUserOnly) {
    const QString deep = folder.filePath(QStringLiteral("share/Pimloft"));
    const ClipboardStore other(desktop.preferences, deep);
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(deep).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
}

TEST_F(ClipboardStoreTest, holdsEachPictureOnlyOnce) {
    const ClipboardItem item = test::entry(ImageContent{test::noise(1'000'000, 1)});
    store->add(item);
    const auto bytesOf = [](const ClipboardItem &each) {
        return std::get<ImageContent>(each.content).bytes.constData();
    };
    store->add(text(QStringLiteral("A")));
    store->togglePin(item);
    EXPECT_EQ(bytesOf(store->items().back()), bytesOf(item));
}

TEST(SharedClipboardStore, livesInTheSupportFolder) {
    FakeDesktop desktop;
    const SystemClock clock;
    const QTemporaryDir folder;
    Dirs dirs;
    dirs.support = folder.path();
    Process process(desktop.platform(), clock, dirs);
    ClipboardStore::shared().add(text(QStringLiteral("A")));
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("clipboard_history.json"))));
    EXPECT_EQ(&ClipboardStore::shared(), &ClipboardStore::shared());
}

}  // namespace
}  // namespace pimloft
