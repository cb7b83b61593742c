// SPDX-License-Identifier: MIT
#include "page_session.h"

#include "app/hotkey_manager.h"
#include "app/settings_keys.h"
#include "clipboard/clipboard_module.h"
#include "clipboard/clipboard_store.h"
#include "ui/page_view.h"

#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class ClipboardPage : public testing::Test {
protected:
    void show() {
        view = std::make_unique<PageView>(session.views().engine(),
                                          *session.appState().clipboardPlus()->settingsView());
        view->resize(560, 900);
        view->show();
        view->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
        session.desktop.log();
    }
    QQuickItem *named(const char *name) const {
        QQuickItem *item = test::named(view.get(), QString::fromUtf8(name));
        EXPECT_TRUE(item) << name;
        return item;
    }
    bool isSaid(const char *text) const {
        return test::texts(view->rootObject()).contains(QString::fromUtf8(text));
    }
    void typeText(const char *text) {
        for (const char letter : QByteArray(text))
            QTest::keyClick(view.get(), letter);
    }

    test::PageSession session;
    std::unique_ptr<PageView> view;
};

TEST_F(ClipboardPage, saysThis) {
    show();
    EXPECT_EQ(test::texts(view->rootObject()).join(QLatin1Char('\n')).toStdString(),
              "History\n"
              "Max items: 50\n"
              "Current items: 0\n"
              "Pinned items: 0\n"
              "Clear Unpinned History\n"
              "Excluded Apps\n"
              "Clipboard content from these apps is never saved (e.g., password managers).\n"
              "1Password\nBitwarden\nLastPass\n"
              "App name\nAdd\n"
              "Shortcuts\n"
              "Cmd+Shift+V\nOpen clipboard history\n"
              "Cmd+Shift+Ctrl+V\nPaste as plain text\n"
              "Enter / Click\nPaste selected item\n"
              "Delete\nRemove selected item\n"
              "Escape\nDismiss popup\n"
              "Smart Features\n"
              "Duplicate detection: identical consecutive copies are merged into one entry.\n"
              "Password managers (1Password, Bitwarden, LastPass) are auto-excluded.\n"
              "Images larger than 50MB are skipped to prevent memory issues.");
}

TEST_F(ClipboardPage, nothingIsCutShort) {
    show();
    for (const QQuickItem *item : view->rootObject()->findChildren<QQuickItem *>())
        EXPECT_FALSE(item->property("truncated").toBool()) << item->property("text").toString().toStdString();
}

TEST_F(ClipboardPage, theStepperGoesInTensFrom10To200) {
    show();
    test::type(view.get(), Qt::Key_Tab);
    test::type(view.get(), Qt::Key_Up);
    EXPECT_EQ(session.desktop.log(), "set pimloft.clipboardplus.maxItems = 60\n");
    EXPECT_TRUE(isSaid("Max items: 60"));
    for (int press = 0; press < 30; ++press)
        test::type(view.get(), Qt::Key_Up);
    EXPECT_EQ(session.desktop.preferences.integer(SettingsKeys::clipboardMaxItems), 200);
    for (int press = 0; press < 30; ++press)
        test::type(view.get(), Qt::Key_Down);
    EXPECT_EQ(session.desktop.preferences.integer(SettingsKeys::clipboardMaxItems), 10);
}

TEST_F(ClipboardPage, theStepperIsClicked) {
    show();
    QQuickItem *stepper = named("Max items: 50");
    while (stepper && !stepper->inherits("QQuickSpinBox"))
        stepper = stepper->nextItemInFocusChain();
    const QPointF plus = stepper->mapToScene(QPointF(stepper->width() - 10, stepper->height() / 2));
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, plus.toPoint());
    EXPECT_EQ(session.desktop.log(), "set pimloft.clipboardplus.maxItems = 60\n");
    const QPointF minus = stepper->mapToScene(QPointF(10, stepper->height() / 2));
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, minus.toPoint());
    EXPECT_EQ(session.desktop.log(), "set pimloft.clipboardplus.maxItems = 50\n");
}

TEST_F(ClipboardPage, aStoredZeroShowsAs50) {
    session.desktop.preferences.set(SettingsKeys::clipboardMaxItems, 0);
    show();
    EXPECT_TRUE(isSaid("Max items: 50"));
}

TEST_F(ClipboardPage, theCountsAreAliveAndTheHistoryIsCleared) {
    show();
    ClipboardStore &store = ClipboardStore::shared();
    for (const char *text : {"a", "b", "c"})
        store.add({.id = QUuid::createUuid(),
                   .content = TextContent{QString::fromUtf8(text)},
                   .sourceApp = {},
                   .sourceAppBundleID = {},
                   .timestamp = {}});
    store.togglePin(store.items().front());
    EXPECT_TRUE(isSaid("Current items: 3"));
    EXPECT_TRUE(isSaid("Pinned items: 1"));
    test::click(named("Clear Unpinned History"));
    EXPECT_TRUE(isSaid("Current items: 1"));
}

TEST_F(ClipboardPage, anAppIsAddedByTheButtonWhichIsDisabledWhileTheFieldIsEmpty) {
    show();
    EXPECT_FALSE(named("Add")->isEnabled());
    test::click(named("App name"));
    typeText("keychain");
    EXPECT_TRUE(named("Add")->isEnabled());
    test::click(named("Add"));
    EXPECT_TRUE(isSaid("keychain"));
    EXPECT_EQ(
        session.desktop.preferences.texts(SettingsKeys::clipboardExcludedApps).value_or(QStringList()).last(),
        QStringLiteral("keychain"));
    EXPECT_EQ(named("App name")->property("text").toString(), QString());
    EXPECT_FALSE(named("Add")->isEnabled());
}

TEST_F(ClipboardPage, returnAddsTooAndTheFieldKeepsTheKeyboard) {
    show();
    test::click(named("App name"));
    typeText("one");
    test::type(view.get(), Qt::Key_Return);
    typeText("two");
    test::type(view.get(), Qt::Key_Return);
    EXPECT_TRUE(isSaid("one"));
    EXPECT_TRUE(isSaid("two"));
}

TEST_F(ClipboardPage, removingEveryAppStoresAnEmptyList) {
    show();
    for (const char *name : {"Remove Bitwarden", "Remove 1Password", "Remove LastPass"})
        test::click(named(name));
    EXPECT_EQ(session.desktop.preferences.texts(SettingsKeys::clipboardExcludedApps), QStringList());
    EXPECT_FALSE(isSaid("LastPass"));
}

TEST_F(ClipboardPage, everythingIsReachedByTheKeyboard) {
    show();
    QStringList order;
    for (int press = 0; press < 6; ++press) {
        test::type(view.get(), Qt::Key_Tab);
        const QQuickItem *item = view->activeFocusItem();
        order << (item->inherits("QQuickSpinBox")     ? QStringLiteral("stepper")
                  : item->inherits("QQuickTextField") ? QStringLiteral("field")
                                                      : item->property("text").toString());
    }
    EXPECT_EQ(order.join(QStringLiteral(", ")).toStdString(),
              "stepper, Clear Unpinned History, Remove 1Password, Remove Bitwarden, Remove LastPass, field");
}

}  // namespace
}  // namespace pimloft
