// SPDX-License-Identifier: MIT
#include "page_session.h"

#include "app/whats_new.h"

#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class WhatsNewView : public testing::Test {
protected:
    void SetUp() override {
        window->present();
        view = test::shownWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view));
        session.desktop.log();
    }

    test::PageSession session;
    int dismissals = 0;
    WhatsNew news{QStringLiteral("1.2.3"), WhatsNew::currentFeatures(), session.desktop.preferences,
                  [this] { ++dismissals; }};
    std::unique_ptr<ViewWindow> window =
        session.views().makeWindow({.title = QStringLiteral("What's New"),
                                    .contentSize = {420, 400},
                                    .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/WhatsNewView.qml")),
                                             {{QStringLiteral("news"), QVariant::fromValue(&news)}}}});
    QQuickWindow *view = nullptr;
};

TEST_F(WhatsNewView, saysThis) {
    EXPECT_EQ(test::spoken(view).join(QLatin1Char('\n')).toStdString(),
              "window: What's New\n"
              "heading: What's New in v1.2.3\n"
              "list item: WindowSnap: Windows 11-style drag-to-edge snapping with 6 layout presets\n"
              "list item: ClipboardPlus: Clipboard history with Cmd+Shift+V popup, search, and pinning\n"
              "list item: FinderFix: Cmd+X cut-paste for files and New File in Finder right-click\n"
              "list item: KeyMapper: One-click Ctrl/Cmd swap with safety panic hotkey\n"
              "list item: QuickVolume: Per-app volume mixer and output device switcher\n"
              "button: Continue");
}

TEST_F(WhatsNewView, continueStoresTheVersionAndDismisses) {
    test::click(test::named(view, QStringLiteral("Continue")));
    EXPECT_EQ(session.desktop.log(), "set pimloft.general.lastSeenVersion = 1.2.3\n");
    EXPECT_EQ(dismissals, 1);
}

TEST_F(WhatsNewView, returnContinues) {
    test::type(view, Qt::Key_Return);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(WhatsNewView, closingItStoresNothing) {
    test::type(view, Qt::Key_Escape);
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(session.desktop.log(), "");
    EXPECT_EQ(dismissals, 0);
}

TEST_F(WhatsNewView, nothingIsCutShortAndEverythingFits) {
    for (const QQuickItem *item : view->contentItem()->findChildren<QQuickItem *>()) {
        EXPECT_FALSE(item->property("truncated").toBool()) << item->property("text").toString().toStdString();
        if (item->inherits("QQuickFlickable")) {
            EXPECT_LE(item->property("contentHeight").toDouble(), item->height());
        }
    }
}

}  // namespace
}  // namespace pimloft
