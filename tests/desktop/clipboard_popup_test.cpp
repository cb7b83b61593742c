// SPDX-License-Identifier: MIT
// The popup with the clipboard history on a real desktop, beside another program's window.
#include "app/process.h"
#include "clipboard/clipboard_module.h"
#include "clipboard/clipboard_store.h"
#include "support/desktop_session.h"
#include "support/key_sink.h"
#include "support/physical_input.h"
#include "ui/kit/theme.h"
#include "ui/page_session.h"
#include "ui/quick_view_host.h"

#include <QGuiApplication>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft::test {
namespace {

/// A program that keeps the keyboard for itself, as an open menu does.
class KeyboardHolder {
public:
    KeyboardHolder() : connection_(xcb_connect(nullptr, nullptr)) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        const XcbReply<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(connection_,
                                    xcb_grab_keyboard(connection_, true, root, XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
        EXPECT_TRUE(reply && reply->status == XCB_GRAB_STATUS_SUCCESS);
    }
    ~KeyboardHolder() { xcb_disconnect(connection_); }

private:
    xcb_connection_t *connection_;
};

class PopupOnADesktop : public testing::Test {
protected:
    PopupOnADesktop() {
        process.setViews(&views);
        for (const char *text : {"third", "second", "first"})
            ClipboardStore::shared().add({.id = QUuid::createUuid(),
                                          .content = TextContent{QString::fromUtf8(text)},
                                          .sourceApp = QStringLiteral("Notes"),
                                          .sourceAppBundleID = {},
                                          .timestamp = ReferenceTime::from(QDateTime::currentDateTimeUtc())});
        module->activate();
        hands.moveTo({700, 500});
    }
    ~PopupOnADesktop() override {
        module.reset();
        process.setViews(nullptr);
    }

    bool isOpen() const { return module->popupController().isOpen(); }
    void pressShortcut() { hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V}); }
    void open() {
        pressShortcut();
        ASSERT_TRUE(waitUntil([this] { return isOpen(); }));
        window = shownWindow();
        ASSERT_TRUE(waitUntil([this] { return window->isExposed() && window->activeFocusItem(); }));
        sink.typed();
    }
    bool hasClosed() {
        return waitUntil([this] { return !isOpen(); });
    }
    /// Whether what is typed now reaches the program in front.
    bool isKeyboardBack() {
        sink.typed();
        hands.tap(KEY_B);
        return waitUntil([this] { return sink.typed() == QLatin1String("AB05"); });
    }
    QString query() const { return ClipboardStore::shared().searchQuery(); }
    QPoint middleOf(const char *name) const {
        const QQuickItem *item = named(window, QString::fromUtf8(name));
        EXPECT_TRUE(item) << name;
        return item->mapToGlobal(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    }

    QTemporaryDir home;
    const Dirs dirs{.preferences = home.path(),
                    .support = home.path(),
                    .autostart = home.path(),
                    .runtime = home.path(),
                    .help = {},
                    .keyGuard = {}};
    SystemClock clock;
    std::unique_ptr<Host> host = createHost(dirs);
    Process process{host->platform(), clock, dirs};
    QuickViewHost views{process.platform().displays, Theme::shared()};
    KeySink sink;
    PhysicalInput hands;
    std::unique_ptr<ClipboardModule> module = ClipboardModule::create();
    QQuickWindow *window = nullptr;
};

TEST_F(PopupOnADesktop, theShortcutOpensItAndClosesItAgain) {
    open();
    pressShortcut();
    EXPECT_TRUE(hasClosed());
    EXPECT_TRUE(isKeyboardBack());
    open();
}

TEST_F(PopupOnADesktop, opensAroundThePointerWhileTheOtherWindowStaysInFront) {
    open();
    EXPECT_TRUE(waitUntil([this] { return window->geometry().center() == QPoint(699, 499); }))
        << window->geometry().center().x() << ", " << window->geometry().center().y();
    // Without a window manager no window is the active one.
    EXPECT_EQ(sink.isActive(), !qEnvironmentVariableIsEmpty("PIMLOFT_TEST_WM"));
}

TEST_F(PopupOnADesktop, whatIsTypedIsLookedForAndReachesNobodyElse) {
    open();
    hands.type("second");
    EXPECT_TRUE(waitUntil([this] { return query() == QLatin1String("second"); })) << query().toStdString();
    EXPECT_EQ(sink.typed(), QString());
}

TEST_F(PopupOnADesktop, escapeClosesItAndGivesTheKeyboardBackAtOnce) {
    open();
    const QPointer fading(window);
    ASSERT_TRUE(waitUntil([&] { return fading->opacity() == 1; }));
    hands.tap(KEY_ESC);
    // Not only when it has faded.
    EXPECT_TRUE(waitUntil([&] { return !fading || fading->opacity() < 1; }));
    EXPECT_TRUE(isKeyboardBack());
    EXPECT_TRUE(hasClosed());
}

TEST_F(PopupOnADesktop, aClickElsewhereClosesItAndAClickInsideDoesNot) {
    open();
    hands.click(middleOf("second"));
    EXPECT_TRUE(waitUntil(
        [this] { return spoken(window).contains(QStringLiteral("list item: second [selected]")); }));
    EXPECT_TRUE(isOpen());
    const int clicks = sink.clicks();
    hands.click({120, 120});
    EXPECT_TRUE(hasClosed());
    EXPECT_TRUE(waitUntil([&] { return sink.clicks() == clicks + 1; })) << "the click must arrive there too";
    EXPECT_TRUE(isKeyboardBack());
}

TEST_F(PopupOnADesktop, aDoubleClickPastesIntoTheProgramInFrontAndNotIntoTheSearch) {
    open();
    hands.doubleClick(middleOf("second"));
    EXPECT_TRUE(waitUntil([this] { return sink.typed() == QLatin1String("Control AB04"); }));
    EXPECT_TRUE(hasClosed());
    EXPECT_EQ(query(), QString());
    EXPECT_TRUE(isKeyboardBack());
    EXPECT_EQ(ClipboardStore::shared().items().front().preview(), QStringLiteral("first"));
}

TEST_F(PopupOnADesktop, opensNothingWhileAnotherProgramHoldsTheKeyboard) {
    {
        const KeyboardHolder holder;
        // The shortcut cannot be pressed then, but the popup can be asked for.
        const_cast<ClipboardPopupController &>(module->popupController()).show();
        EXPECT_FALSE(isOpen());
    }
    open();
}

TEST_F(PopupOnADesktop, switchingTheModuleOffClosesItAndGivesTheKeyboardBack) {
    open();
    module->deactivate();
    EXPECT_TRUE(isKeyboardBack());
    EXPECT_TRUE(hasClosed());
}

TEST_F(PopupOnADesktop, theKeyboardComesBackWithTheEndOfTheProgram) {
    open();
    module.reset();
    EXPECT_TRUE(isKeyboardBack());
}

TEST_F(PopupOnADesktop, theNextPopupIsEmptyOfTheLastOne) {
    open();
    hands.type("second");
    EXPECT_TRUE(waitUntil([this] { return query() == QLatin1String("second"); }));
    hands.tap(KEY_ESC);
    EXPECT_TRUE(hasClosed());
    open();
    EXPECT_EQ(query(), QString());
    EXPECT_EQ(spoken(window).filter(QStringLiteral("list item")).size(), 3);
}

}  // namespace
}  // namespace pimloft::test
