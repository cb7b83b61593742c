// SPDX-License-Identifier: MIT
// Puts the popup with the history and its page on a real screen in every look.
#include "history_session.h"
#include "pictures.h"
#include "plain_panels.h"

#include "clipboard/clipboard_module.h"
#include "ui/page_view.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::colours;

class ClipboardPictures : public test::Pictures {
protected:
    ClipboardPictures() {
        panels.blending = GetParam().trusted;
        session.desktop.mouse.pointer = QPointF(400, 300);
        session.desktop.workspace.files = QIcon::fromTheme(QStringLiteral("text-x-generic"));
    }
    ~ClipboardPictures() override {
        history.controller.hide();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !history.controller.isOpen(); }));
    }

    void fill() {
        history.addText("See you at the station at 18:30, platform 4.", "Messages", 93'000);
        history.add(RichTextContent{"{\\rtf1 x}"}, "Writer", 86'500);
        history.addText("שלום עולם, זה טקסט מימין לשמאל", "Firefox", 26'000);
        history.addText("Grüße 👋🏽 from the coast 🌊🏖️ — back on Monday", "Telegram", 9'000);
        history.add(HtmlContent{QStringLiteral("<h1>Release notes</h1> <p>Everything is <b>faster</b></p>")},
                    "Firefox", 4'000);
        history.add(FileURLContent{QUrl(QStringLiteral("file:///home/ada/Documents/Report%202026.txt"))},
                    "Files", 2'500);
        history.addText("ssh-ed25519 AAAAC3NzaC1lZDI1NTE5AAAAIH6X0 ada@workstation", "Terminal", 1'300, true);
        history.add(ImageContent{test::HistorySession::landscape({1440, 900})}, "Screenshot", 330);
        history.addText("const auto frame = frameNearCursor(size, pointer, display.visibleFrame);\n"
                        "return window->show(frame);\nthird line",
                        "Code", 75);
        history.addText("Buy milk, bread and a very good cheese", "Notes", 12);
    }
    void open() {
        history.controller.show();
        ASSERT_TRUE(history.controller.isOpen());
        window = test::shownWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    QQuickItem *named(const QString &name) const {
        QQuickItem *item = test::named(window, name);
        EXPECT_TRUE(item) << name.toStdString();
        return item;
    }
    void hover(const QQuickItem *item) const {
        QTest::mouseMove(window, item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint());
    }
    void expectPicture(const char *name) const {
        EXPECT_GE(colours(picture(window, QLatin1String(name))), 20);
    }

    test::PlainPanels panels{double(QGuiApplication::primaryScreen()->size().height())};
    test::HistorySession history{session, panels};
    QQuickWindow *window = nullptr;
};

TEST_P(ClipboardPictures, history) {
    fill();
    open();
    hover(named(QStringLiteral("Buy milk, bread and a very good cheese")));
    expectPicture("popup");
    QQuickItem *row = named(history.store.preview(history.store.items().at(1)));
    hover(row);
    test::click(row);
    expectPicture("popup-selected");
    auto *list = window->contentItem()->findChild<QQuickItem *>(QStringLiteral("entries"));
    list->setProperty("contentY", list->property("contentHeight").toDouble() - list->height() + 6);
    expectPicture("popup-end");
}

TEST_P(ClipboardPictures, search) {
    fill();
    open();
    for (const char letter : QByteArray("fire"))
        QTest::keyClick(window, letter);
    expectPicture("popup-search");
    QTest::keyClick(window, 'x');
    expectPicture("popup-no-matches");
}

TEST_P(ClipboardPictures, empty) {
    open();
    expectPicture("popup-empty");
}

TEST_P(ClipboardPictures, page) {
    PageView view(session.views().engine(), *session.appState().clipboardPlus()->settingsView());
    view.setColor(session.theme().colors().window);
    view.resize(560, 980);
    view.show();
    view.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    window = &view;
    expectPicture("clipboard");
    QQuickItem *field = nullptr;
    for (QQuickItem *each : view.rootObject()->findChildren<QQuickItem *>())
        if (each->inherits("QQuickTextField"))
            field = each;
    ASSERT_TRUE(field);
    test::click(field);
    for (const char letter : QByteArray("Keychain"))
        QTest::keyClick(&view, letter);
    expectPicture("clipboard-typing");
}

INSTANTIATE_TEST_SUITE_P(Ui, ClipboardPictures, testing::ValuesIn(test::looks()), test::lookName);

}  // namespace
}  // namespace pimloft
