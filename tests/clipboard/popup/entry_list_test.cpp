// SPDX-License-Identifier: MIT
#include "clipboard/entry_list.h"

#include "clipboard/thumbnails.h"
#include "history.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <random>

namespace pimloft {
namespace {

using test::entry;
using test::pinned;
using test::text;

/// A list of a history, and what it tells of its changes.
struct Entries : testing::Test {
    EntryList &open() {
        list =
            std::make_unique<EntryList>(history.store, thumbnails, history.desktop.workspace, history.clock);
        tester = std::make_unique<QAbstractItemModelTester>(
            list.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        const auto rows = [this](const char *what) {
            return [this, what](const QModelIndex &, int first, int last) {
                changes << QStringLiteral("%1 %2-%3").arg(QLatin1String(what)).arg(first).arg(last);
            };
        };
        QObject::connect(list.get(), &EntryList::rowsInserted, rows("insert"));
        QObject::connect(list.get(), &EntryList::rowsRemoved, rows("remove"));
        QObject::connect(list.get(), &EntryList::modelReset, [this] { changes << QStringLiteral("reset"); });
        QObject::connect(list.get(), &EntryList::dataChanged, [this](const QModelIndex &first) {
            changes << QStringLiteral("change %1").arg(first.row());
        });
        return *list;
    }
    QString at(int row, EntryList::Role role) const { return list->data(list->index(row), role).toString(); }
    std::string shown() const {
        QStringList rows;
        for (int row = 0; row < list->rowCount(); ++row)
            rows << at(row, EntryList::preview) + (list->data(list->index(row), EntryList::isPinned).toBool()
                                                       ? QStringLiteral("*")
                                                       : QString());
        return rows.join(QStringLiteral(", ")).toStdString();
    }
    std::string told() { return std::exchange(changes, {}).join(QStringLiteral(", ")).toStdString(); }

    test::History history;
    Thumbnails thumbnails;
    std::unique_ptr<EntryList> list;
    std::unique_ptr<QAbstractItemModelTester> tester;
    QStringList changes;
};

TEST_F(Entries, showTheHistoryInItsOrderWithPinnedEntriesWhereTheyAre) {
    history.hold({text("c"), pinned(text("b")), text("a")});
    open();
    EXPECT_EQ(shown(), "c, b*, a");
}

TEST_F(Entries, sayWhatTheyHoldAndWhereItComesFrom) {
    history.hold({entry(TextContent{QStringLiteral("Grüße\r\n😀")}, QStringLiteral("Editor"))});
    open();
    EXPECT_EQ(at(0, EntryList::symbol), QStringLiteral("doc.text"));
    EXPECT_EQ(at(0, EntryList::sourceApp), QStringLiteral("Editor"));
    EXPECT_EQ(at(0, EntryList::time), QStringLiteral("5 min. ago"));
    EXPECT_EQ(at(0, EntryList::characters), QStringLiteral("7 chars"));
}

TEST_F(Entries, haveASymbolForEachKindAndALengthOnlyForTexts) {
    history.hold({text("t"), entry(RichTextContent{"{\\rtf1}"}), test::image({60, 40}),
                  entry(FileURLContent{QUrl(QStringLiteral("file:///tmp/a.txt"))}),
                  entry(HtmlContent{QStringLiteral("<b>h</b>")})});
    open();
    QStringList rows;
    for (int row = 0; row < 5; ++row)
        rows << at(row, EntryList::symbol) + QLatin1Char('|') + at(row, EntryList::characters);
    EXPECT_EQ(rows.join(QLatin1Char(' ')).toStdString(),
              "doc.text|1 chars doc.richtext| photo| | chevron.left.forwardslash.chevron.right|");
}

TEST_F(Entries, haveAnIconOnlyForFiles) {
    QPixmap icon(16, 16);
    icon.fill(Qt::blue);
    history.desktop.workspace.files = QIcon(icon);
    history.hold({entry(FileURLContent{QUrl(QStringLiteral("file:///tmp/a.txt"))}), text("a.txt")});
    const EntryList &entries = open();
    EXPECT_FALSE(entries.data(entries.index(0), EntryList::fileIcon).value<QIcon>().isNull());
    EXPECT_TRUE(entries.data(entries.index(1), EntryList::fileIcon).value<QIcon>().isNull());
}

TEST_F(Entries, theLengthIsThatOfTheWholeTextNotOfThePreview) {
    history.hold({text(QByteArray(5000, 'x').constData())});
    open();
    EXPECT_EQ(at(0, EntryList::characters), QStringLiteral("5000 chars"));
    EXPECT_EQ(at(0, EntryList::preview).size(), 200);
}

TEST_F(Entries, aPictureComesWhenItIsDecoded) {
    history.hold({text("t"), test::image({60, 40})});
    EntryList &entries = open();
    QSignalSpy changed(&entries, &EntryList::dataChanged);
    EXPECT_TRUE(entries.data(entries.index(1), EntryList::isImage).toBool());
    EXPECT_TRUE(entries.data(entries.index(1), EntryList::thumbnail).value<QImage>().isNull());
    EXPECT_FALSE(entries.data(entries.index(0), EntryList::isImage).toBool());
    ASSERT_TRUE(changed.wait());
    EXPECT_EQ(told(), "change 1");
    EXPECT_FALSE(entries.data(entries.index(1), EntryList::thumbnail).value<QImage>().isNull());
    EXPECT_TRUE(entries.data(entries.index(1), EntryList::isImage).toBool());
}

TEST_F(Entries, whatCannotBeDecodedIsShownByItsPreview) {
    history.hold({entry(ImageContent{"no picture at all"})});
    EntryList &entries = open();
    QSignalSpy changed(&entries, &EntryList::dataChanged);
    EXPECT_TRUE(entries.data(entries.index(0), EntryList::isImage).toBool()) << "nobody knows yet";
    ASSERT_TRUE(changed.wait());
    EXPECT_FALSE(entries.data(entries.index(0), EntryList::isImage).toBool());
    EXPECT_EQ(at(0, EntryList::preview), QStringLiteral("Image (17 bytes)"));
}

TEST_F(Entries, aNewCopyIsOneRowMore) {
    history.hold({text("b"), text("a")});
    open();
    history.store.add(text("c"));
    EXPECT_EQ(told(), "insert 0-0");
    EXPECT_EQ(shown(), "c, b, a");
}

TEST_F(Entries, anOldContentCopiedAgainGoesAndComesOnTop) {
    history.hold({text("b"), text("a")});
    open();
    history.store.add(text("a"));
    EXPECT_EQ(told(), "remove 1-1, insert 0-0");
    EXPECT_EQ(shown(), "a, b");
}

TEST_F(Entries, aRemovedEntryIsOneRowLess) {
    history.hold({text("c"), text("b"), text("a")});
    EntryList &entries = open();
    history.store.remove(*entries.itemAt(1));
    EXPECT_EQ(told(), "remove 1-1");
    EXPECT_EQ(shown(), "c, a");
}

TEST_F(Entries, pinningChangesOneRow) {
    history.hold({text("b"), text("a")});
    EntryList &entries = open();
    history.store.togglePin(*entries.itemAt(1));
    EXPECT_EQ(told(), "change 1");
    EXPECT_EQ(shown(), "b, a*");
}

TEST_F(Entries, clearingLeavesThePinnedOnes) {
    history.hold({text("e"), pinned(text("d")), text("c"), text("b"), pinned(text("a"))});
    open();
    history.store.removeAll();
    EXPECT_EQ(told(), "remove 2-3, remove 0-0");
    EXPECT_EQ(shown(), "d*, a*");
}

TEST_F(Entries, aSearchTakesRowsAwayAndGivesThemBack) {
    history.hold({text("cat"), text("dog"), text("caterpillar")});
    open();
    history.store.setSearchQuery(QStringLiteral("CAT"));
    EXPECT_EQ(shown(), "cat, caterpillar");
    EXPECT_EQ(told(), "remove 1-1");
    history.store.setSearchQuery({});
    EXPECT_EQ(shown(), "cat, dog, caterpillar");
    EXPECT_EQ(told(), "insert 1-1");
}

TEST_F(Entries, aSearchThatScattersTheRowsBeginsAnew) {
    history.desktop.preferences.set(QStringLiteral("pimloft.clipboardplus.maxItems"), 200);
    std::vector<ClipboardItem> items;
    for (int each = 0; each < 100; ++each)
        items.push_back(text(qPrintable(QStringLiteral("%1 %2").arg(each % 2 ? "odd" : "even").arg(each))));
    history.hold(items);
    open();
    history.store.setSearchQuery(QStringLiteral("odd"));
    EXPECT_EQ(told(), "reset");
    EXPECT_EQ(list->rowCount(), 50);
}

TEST_F(Entries, aRowThatIsNotThereHoldsNothing) {
    history.hold({text("a")});
    EntryList &entries = open();
    EXPECT_FALSE(entries.itemAt(-1));
    EXPECT_FALSE(entries.itemAt(1));
    EXPECT_FALSE(entries.data({}, EntryList::preview).isValid());
    EXPECT_FALSE(entries.data(entries.index(0), Qt::DecorationRole).isValid());
}

TEST_F(Entries, aPictureThatIsDecodedAfterItsEntryHasGoneChangesNoRow) {
    const ClipboardItem picture = test::image({60, 40});
    history.hold({text("t"), picture});
    EntryList &entries = open();
    QSignalSpy decoded(&thumbnails, &Thumbnails::decoded);
    entries.data(entries.index(1), EntryList::thumbnail);
    history.store.remove(picture);
    told();
    ASSERT_TRUE(decoded.wait());
    EXPECT_EQ(told(), "");
}

TEST_F(Entries, thatShareAnIdAsInAFileOfSomebodyElseBeginAnew) {
    const ClipboardItem first = text("odd 1");
    ClipboardItem twin = text("odd 3!");
    twin.id = first.id;
    history.hold({first, text("even 2!"), twin});
    const EntryList &entries = open();
    const auto held = [&] {
        QStringList rows;
        for (int row = 0; row < entries.rowCount(); ++row)
            rows << entries.itemAt(row)->preview();
        return rows.join(QStringLiteral(", ")).toStdString();
    };
    history.store.setSearchQuery(QStringLiteral("3"));
    EXPECT_EQ(told(), "reset");
    EXPECT_EQ(held(), "odd 3!");
    history.store.setSearchQuery({});
    EXPECT_EQ(told(), "reset");
    EXPECT_EQ(held(), "odd 1, even 2!, odd 3!");
    history.store.setSearchQuery(QStringLiteral("!"));
    EXPECT_EQ(told(), "reset");
    EXPECT_EQ(held(), "even 2!, odd 3!");
}

TEST_F(Entries, followTheStoreThroughAnyChanges) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    history.desktop.preferences.set(QStringLiteral("pimloft.clipboardplus.maxItems"), 12);
    EntryList &entries = open();
    for (int step = 0; step < 500; ++step) {
        const auto item = entries.itemAt(below(std::max(1, entries.rowCount())));
        switch (below(6)) {
        case 0:
            if (item)
                history.store.remove(*item);
            break;
        case 1:
            if (item)
                history.store.togglePin(*item);
            break;
        case 2:
            history.store.setSearchQuery(below(2) ? QString() : QString::number(below(10)));
            break;
        case 3:
            if (below(8) == 0)
                history.store.removeAll();
            break;
        default:
            history.store.add(text(QByteArray::number(below(30)).constData()));
        }
        QStringList wanted;
        for (const ClipboardItem *each : history.store.filteredItems())
            wanted << history.store.preview(*each) + (each->isPinned ? QStringLiteral("*") : QString());
        ASSERT_EQ(shown(), wanted.join(QStringLiteral(", ")).toStdString()) << "after step " << step;
    }
}

}  // namespace
}  // namespace pimloft
