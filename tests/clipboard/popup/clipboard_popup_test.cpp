// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_popup.h"

#include "clipboard/thumbnails.h"
#include "history.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::pinned;
using test::text;

struct Popup : testing::Test {
    Popup() { history.hold({text("c"), pinned(text("b")), text("a")}); }

    std::string shown() {
        QStringList rows;
        for (const ClipboardItem *item : history.store.filteredItems())
            rows << history.store.preview(*item);
        return rows.join(QStringLiteral(", ")).toStdString();
    }
    std::string happened() { return std::exchange(events, {}).join(QStringLiteral(", ")).toStdString(); }

    test::History history;
    Thumbnails thumbnails;
    QStringList events;
    ClipboardPopup popup{
        history.store, thumbnails, history.desktop.workspace, history.clock,
        ClipboardPopup::Actions{
            .onPaste =
                [this](const ClipboardItem &item) { events << QStringLiteral("paste ") + item.preview(); },
            .onDismiss = [this] { events << QStringLiteral("dismiss"); }}};
};

TEST_F(Popup, nothingIsSelectedAtFirst) {
    EXPECT_FALSE(popup.selectedID());
    EXPECT_TRUE(popup.selectedIDs().isEmpty());
}

TEST_F(Popup, oneEntryIsSelectedNeverSeveral) {
    popup.select(0);
    popup.select(1);
    EXPECT_EQ(popup.selectedID(), history.store.items().at(1).id);
    EXPECT_TRUE(popup.selectedIDs().isEmpty());
}

TEST_F(Popup, theSelectionStaysWithItsEntry) {
    popup.select(0);
    const QUuid id = *popup.selectedID();
    history.store.add(text("d"));
    EXPECT_EQ(popup.selectedID(), id);
}

TEST_F(Popup, selectingAgainTellsNothing) {
    QSignalSpy changed(&popup, &ClipboardPopup::selectedIDChanged);
    popup.select(0);
    popup.select(0);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Popup, pastesFirstAndThenGoes) {
    popup.paste(2);
    EXPECT_EQ(happened(), "paste a, dismiss");
    EXPECT_EQ(shown(), "c, b, a") << "the order of the history";
}

TEST_F(Popup, aRowThatIsGoneDoesNothing) {
    popup.select(7);
    popup.paste(7);
    popup.remove(7);
    popup.togglePin(-1);
    EXPECT_EQ(happened(), "");
    EXPECT_EQ(shown(), "c, b, a");
}

TEST_F(Popup, removesAndPinsTheEntryInItsRow) {
    popup.remove(0);
    popup.togglePin(1);
    EXPECT_EQ(shown(), "b, a");
    EXPECT_TRUE(history.store.items().at(1).isPinned);
}

TEST_F(Popup, rowsCountInTheFilteredList) {
    popup.setSearchQuery(QStringLiteral("a"));
    popup.remove(0);
    popup.setSearchQuery({});
    EXPECT_EQ(shown(), "c, b");
}

TEST_F(Popup, clearAllWithTwoPinnedAndFiveUnpinnedEntriesLeavesThePinnedOnes) {
    history.store.togglePin(history.store.items().at(2));
    for (const char *more : {"1", "2", "3", "4"})
        history.store.add(text(more));
    ASSERT_EQ(popup.countText(), QStringLiteral("7 items"));
    popup.clearAll();
    EXPECT_EQ(shown(), "b, a");
    EXPECT_EQ(popup.countText(), QStringLiteral("2 items"));
}

TEST_F(Popup, countsTheHistoryNotTheMatches) {
    popup.setSearchQuery(QStringLiteral("a"));
    EXPECT_EQ(popup.countText(), QStringLiteral("3 items"));
}

TEST_F(Popup, anEmptyListSaysWhy) {
    EXPECT_EQ(popup.emptyText(), QStringLiteral("No clipboard history"));
    popup.setSearchQuery(QStringLiteral("zzz"));
    EXPECT_EQ(popup.emptyText(), QStringLiteral("No matches"));
    popup.setSearchQuery(QStringLiteral(" "));
    EXPECT_EQ(popup.emptyText(), QStringLiteral("No matches")) << "a blank is a search too";
}

TEST_F(Popup, theSearchIsTheStores) {
    QSignalSpy changed(&popup, &ClipboardPopup::searchQueryChanged);
    popup.setSearchQuery(QStringLiteral("x"));
    EXPECT_EQ(history.store.searchQuery(), QStringLiteral("x"));
    history.store.setSearchQuery({});
    EXPECT_EQ(popup.searchQuery(), QString());
    EXPECT_EQ(changed.size(), 2);
}

}  // namespace
}  // namespace pimloft
