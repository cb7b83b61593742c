// SPDX-License-Identifier: MIT
#include "history_session.h"
#include "page_session.h"

#include <QGuiApplication>
#include <QQuickView>
#include <QStyleHints>
#include <QTest>

#include <gtest/gtest.h>

#include <map>

namespace pimloft {
namespace {

constexpr const char *pasteKey = "post key 9 with flags 0x100000\n";

class PopupView : public testing::Test {
protected:
    PopupView() {
        session.desktop.panels.blending = false;
        session.desktop.mouse.pointer = QPointF(400, 300);
        history.addText("third");
        history.addText("second");
        history.addText("first");
    }
    ~PopupView() override {
        history.controller.hide();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
    }

    /// The panels of the fake desktop are not put on screen, so this does.
    void open() {
        history.controller.show();
        ASSERT_TRUE(history.controller.isOpen());
        window()->resize(340, 420);
        window()->show();
        window()->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
        session.desktop.log();
    }
    static QQuickWindow *window() {
        for (QWindow *each : QGuiApplication::topLevelWindows())
            if (auto *quick = qobject_cast<QQuickWindow *>(each))
                return quick;
        return nullptr;
    }
    QQuickItem *named(const char *name) const {
        QQuickItem *item = test::named(window(), QString::fromUtf8(name));
        EXPECT_TRUE(item) << name;
        return item;
    }
    std::string spoken() const { return test::spoken(window()).join(QLatin1Char('\n')).toStdString(); }
    /// The rows from top to bottom: a list makes them in another order.
    std::string entries() const {
        const QLatin1String role("list item: ");
        std::map<double, QString> rows;
        for (const QString &line : test::spoken(window())) {
            if (!line.startsWith(role))
                continue;
            const QString name = line.mid(role.size()).remove(QStringLiteral(" [selected]"));
            rows[test::named(window(), name)->y()] = line.mid(role.size());
        }
        QStringList names;
        for (const auto &[y, row] : rows)
            names << row;
        return names.join(QStringLiteral(", ")).toStdString();
    }
    QStringList texts() const { return test::texts(window()->contentItem()); }
    bool isSaid(const char *text) const { return texts().contains(QString::fromUtf8(text)); }
    void hover(const char *name) const {
        const QQuickItem *item = named(name);
        // A pointer that rests where the last test left it tells nobody.
        QTest::mouseMove(window(), QPoint(1, 1));
        QTest::mouseMove(window(),
                         item->mapToScene(QPointF(item->width() / 3, item->height() / 2)).toPoint());
    }
    void typeText(const char *text) {
        for (const char letter : QByteArray(text))
            QTest::keyClick(window(), letter);
    }

    test::PageSession session;
    test::HistorySession history{session, session.desktop.panels};
};

TEST_F(PopupView, saysThis) {
    open();
    EXPECT_EQ(spoken(), "window: Clipboard history\n"
                        "text field: Search clipboard history...\n"
                        "list: Clipboard history\n"
                        "list item: first\n"
                        "list item: second\n"
                        "list item: third\n"
                        "text: 3 items\n"
                        "button: Clear All");
}

TEST_F(PopupView, aRowShowsWhatItIsAndWhereItComesFrom) {
    open();
    for (const char *text : {"first", "Notes", "·  5 min. ago  ·  5 chars"})
        EXPECT_TRUE(isSaid(text)) << text;
}

TEST_F(PopupView, aRowDoesNotBeginWithBlankLines) {
    history.addText(" \n  indented\nmore");
    open();
    EXPECT_TRUE(isSaid("  indented"));
    EXPECT_EQ(entries(), "  indented, first, second, third");
}

TEST_F(PopupView, typingGoesToTheSearchAtOnce) {
    open();
    typeText("ir");
    EXPECT_EQ(history.store.searchQuery(), QStringLiteral("ir"));
    EXPECT_EQ(entries(), "first, third");
}

TEST_F(PopupView, theSearchIsEmptiedByItsButtonWhichIsThereOnlyThen) {
    open();
    EXPECT_FALSE(test::named(window(), QStringLiteral("Clear search")));
    typeText("second");
    EXPECT_EQ(entries(), "second");
    test::click(named("Clear search"));
    EXPECT_EQ(history.store.searchQuery(), QString());
    EXPECT_TRUE(QTest::qWaitFor([this] { return entries() == "first, second, third"; })) << entries();
    typeText("t");
    EXPECT_EQ(history.store.searchQuery(), QStringLiteral("t")) << "the field must keep the keyboard";
}

TEST_F(PopupView, aTextThatNothingMatchesShowsNoMatches) {
    open();
    EXPECT_FALSE(isSaid("No matches"));
    typeText("zzz");
    EXPECT_TRUE(QTest::qWaitFor([this] { return isSaid("No matches"); }));
    EXPECT_TRUE(isSaid("3 items"));
}

TEST_F(PopupView, anEmptyHistorySaysSo) {
    history.store.removeAll();
    open();
    EXPECT_TRUE(isSaid("No clipboard history"));
    EXPECT_TRUE(isSaid("0 items"));
}

TEST_F(PopupView, aClickSelectsARowAndPastesNothing) {
    open();
    test::click(named("second"));
    EXPECT_EQ(entries(), "first, second [selected], third");
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
    test::click(named("third"));
    EXPECT_EQ(entries(), "first, second, third [selected]");
    EXPECT_EQ(session.desktop.log(), "");
    EXPECT_TRUE(history.controller.isOpen());
}

TEST_F(PopupView, aDoubleClickPastesAndCloses) {
    open();
    const QQuickItem *row = named("second");
    QTest::mouseDClick(window(), Qt::LeftButton, {},
                       row->mapToScene(QPointF(row->width() / 2, row->height() / 2)).toPoint());
    const std::string log = session.desktop.log();
    EXPECT_NE(log.find(pasteKey), std::string::npos) << log;
    EXPECT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
    EXPECT_EQ(history.store.items().front().preview(), QStringLiteral("first"));
}

TEST_F(PopupView, escapeDismisses) {
    open();
    test::type(window(), Qt::Key_Escape);
    EXPECT_EQ(session.desktop.log(), "give the keyboard back\n");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
}

TEST_F(PopupView, escapeDismissesWithASearchToo) {
    open();
    typeText("second");
    test::type(window(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
}

TEST_F(PopupView, noOtherKeyDoesAnythingToTheList) {
    open();
    test::click(named("second"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Up,
                              Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Tab, Qt::Key_PageDown})
        test::type(window(), key);
    test::type(window(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(entries(), "first, second [selected], third");
    EXPECT_EQ(session.desktop.log(), "");
    EXPECT_TRUE(history.controller.isOpen());
    typeText("x");
    EXPECT_EQ(history.store.searchQuery(), QStringLiteral("x")) << "the field must keep the keyboard";
}

TEST_F(PopupView, theButtonsOfARowAreThereWhileThePointerIs) {
    open();
    EXPECT_FALSE(test::named(window(), QStringLiteral("Delete")));
    hover("second");
    EXPECT_TRUE(named("Pin"));
    EXPECT_TRUE(named("Delete"));
}

TEST_F(PopupView, aRowIsPinnedAndUnpinned) {
    open();
    hover("second");
    test::click(named("Pin"));
    EXPECT_TRUE(history.store.items().at(1).isPinned);
    EXPECT_EQ(entries(), "first, second, third") << "neither moved nor selected";
    test::click(named("Unpin"));
    EXPECT_FALSE(history.store.items().at(1).isPinned);
}

TEST_F(PopupView, aRowIsDeleted) {
    open();
    hover("second");
    test::click(named("Delete"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return entries() == "first, third"; })) << entries();
    EXPECT_TRUE(history.controller.isOpen());
    typeText("x");
    EXPECT_EQ(history.store.searchQuery(), QStringLiteral("x")) << "the field must keep the keyboard";
}

TEST_F(PopupView, clearAllLeavesThePinnedEntries) {
    history.addText("kept", "Notes", 10, true);
    open();
    test::click(named("Clear All"));
    EXPECT_EQ(entries(), "kept");
}

TEST_F(PopupView, aCopyMadeMeanwhileComesOnTop) {
    open();
    history.addText("newest");
    EXPECT_TRUE(QTest::qWaitFor([this] { return entries() == "newest, first, second, third"; })) << entries();
}

TEST_F(PopupView, onlyTheRowsInViewAreMade) {
    session.desktop.preferences.set(QStringLiteral("pimloft.clipboardplus.maxItems"), 2000);
    for (int each = 0; each < 1000; ++each)
        history.addText(QByteArray::number(each).constData());
    open();
    EXPECT_LT(window()->contentItem()->findChildren<QQuickItem *>(QString()).size(), 1500);
    const auto *list = window()->contentItem()->findChild<QQuickItem *>(QStringLiteral("entries"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->property("count").toInt(), 1003);
}

TEST_F(PopupView, theEngineIsKeptWhileItIsOpenAndMayGoAfterwards) {
    open();
    std::weak_ptr<void> use = session.views().engine().use();
    EXPECT_FALSE(use.expired());
    history.controller.hide();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
    EXPECT_TRUE(use.expired());
}

TEST_F(PopupView, theUserInterfaceMayEndBeforeIt) {
    open();
    session.endViews();
    EXPECT_TRUE(history.controller.isOpen());
    EXPECT_FALSE(qobject_cast<QQuickView *>(window())->rootObject());
    // What was typed meanwhile still comes.
    test::type(window(), Qt::Key_A);
}

}  // namespace
}  // namespace pimloft
