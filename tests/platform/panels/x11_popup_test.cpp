// SPDX-License-Identifier: MIT
#include "panel_desktop.h"

#include "platform/events/x11_key_poster.h"

#include <QElapsedTimer>
#include <QGuiApplication>

namespace pimloft {
namespace {

using namespace test;

constexpr QRect place(400, 400, 340, 300);
constexpr CarbonModifiers commandShift = CarbonModifiers::command | CarbonModifiers::shift;

QString name(Dismissal why) {
    switch (why) {
    case Dismissal::outsideClick:
        return QStringLiteral("outside click");
    case Dismissal::otherWindowActivated:
        return QStringLiteral("other window");
    case Dismissal::screenLocks:
        return QStringLiteral("lock");
    case Dismissal::idle:
        return QStringLiteral("idle");
    case Dismissal::typingLost:
        return QStringLiteral("typing lost");
    }
    return {};
}

struct PopupTest : PanelDesktop {
    QStringList dismissals;
    std::unique_ptr<Panel> popup = make(PanelKind::popup);
    X11KeyPoster poster{keyboard, [this] { panels.endTyping(); }, [] { return ShortcutChord::control; }};

    PopupTest() {
        popup->onDismiss = [this](Dismissal why) { dismissals << name(why); };
    }

    void show() {
        EXPECT_TRUE(popup->show(desktop(place)));
        EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    }

    QString dismissed() {
        settle();
        return dismissals.join(QStringLiteral(", "));
    }

    static xcb_connection_t *qtConnection() {
        return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    }

    /// Another program takes the keyboard, or fails to.
    static bool grabKeyboard(X11Session &other) {
        const XcbReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            other.connection(),
            xcb_grab_keyboard(other.connection(), false, other.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                              XCB_GRAB_MODE_ASYNC),
            nullptr));
        const bool taken = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
        return taken;
    }
};

TEST_F(PopupTest, isTypedIntoWhileTheOtherProgramStaysActive) {
    const xcb_window_t active = activeWindow.current();
    show();
    hands.type("Search me");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("Search me"); }));
    EXPECT_EQ(activeWindow.current(), active);
    EXPECT_EQ(sink.keys(), QString());
    popup->orderOut();
    EXPECT_TRUE(waitUntil([&] { return !isMapped(*popup); }));
    hands.type("q");
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("AD01"); }));
    EXPECT_EQ(activeWindow.current(), active);
}

TEST_F(PopupTest, standsExactlyWhereItIsPut) {
    show();
    EXPECT_EQ(nativeFrame(*popup), place);
    popup->setFrame(desktop(place.translated(33, -55)));
    EXPECT_TRUE(waitUntil([&] { return nativeFrame(*popup) == place.translated(33, -55); }));
}

TEST_F(PopupTest, afterItGaveTheKeyboardBackTheNextPostedKeyReachesTheProgramInFront) {
    show();
    popup->releaseTyping();
    keyboard.post(keyboard.map().keycode(Key::v), KeyFlags::control);
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("Control AB04"); }));
    // It may still fade.
    EXPECT_TRUE(isMapped(*popup));
    EXPECT_EQ(content->text, QString());
}

TEST_F(PopupTest, postingEndsItsTyping) {
    show();
    poster.post(Key::v, KeyFlags::command);
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("Control AB04"); }));
    hands.type("q");
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("AD01"); }));
    EXPECT_EQ(dismissed(), QString());
}

TEST_F(PopupTest, whileItFadesClicksPassThrough) {
    KeySink below(place);
    show();
    popup->releaseTyping();
    hands.click(place.center());
    EXPECT_TRUE(waitUntil([&] { return below.clicks() == 1; }));
    EXPECT_EQ(content->clicks, 0);
    show();
    hands.click(place.center());
    EXPECT_TRUE(waitUntil([&] { return content->clicks == 1; }));
}

TEST_F(PopupTest, givesTheKeyboardBackWhenItIsDestroyed) {
    show();
    popup.reset();
    hands.type("q");
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("AD01"); }));
    poster.post(Key::v, KeyFlags::command);
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("Control AB04"); }));
}

TEST_F(PopupTest, isNotShownWhileAnotherProgramHoldsTheKeyboard) {
    X11Session other;
    ASSERT_TRUE(grabKeyboard(other));
    EXPECT_FALSE(popup->show(desktop(place)));
    session.roundTrip();
    EXPECT_FALSE(isMapped(*popup));
    xcb_ungrab_keyboard(other.connection(), XCB_CURRENT_TIME);
    other.roundTrip();
    show();
    EXPECT_FALSE(grabKeyboard(other));
}

TEST_F(PopupTest, opensFromAHotkeyThatIsStillHeld) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    bool shown = false;
    hotkeys.onPressed = [&](HotkeyId) { shown = popup->show(desktop(place)); };
    hands.press(KEY_LEFTMETA);
    hands.press(KEY_LEFTSHIFT);
    hands.press(KEY_V);
    EXPECT_TRUE(waitUntil([&] { return shown; }));
    hands.release(KEY_V);
    hands.release(KEY_LEFTSHIFT);
    hands.release(KEY_LEFTMETA);
    hands.type("a");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("a"); }));
}

TEST_F(PopupTest, theKeyThatOpenedItDoesNotRepeatIntoIt) {
    currentSession().run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                  QStringLiteral("100"), QStringLiteral("50")});
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{1}));
    int presses = 0;
    hotkeys.onPressed = [&](HotkeyId) {
        ++presses;
        EXPECT_TRUE(popup->show(desktop(place)));
    };
    hands.press(KEY_LEFTMETA);
    hands.press(KEY_LEFTSHIFT);
    hands.press(KEY_V);
    EXPECT_TRUE(waitUntil([&] { return presses == 1; }));
    hands.release(KEY_LEFTMETA);
    // Long enough for a held key to repeat.
    QElapsedTimer held;
    held.start();
    EXPECT_TRUE(waitUntil([&] { return held.elapsed() > 300; }));
    hands.release(KEY_V);
    hands.release(KEY_LEFTSHIFT);
    hands.type("va");
    EXPECT_TRUE(waitUntil([&] { return content->text.endsWith(QLatin1Char('a')); }));
    EXPECT_EQ(content->text, QStringLiteral("va"));
    EXPECT_EQ(presses, 1);
}

TEST_F(PopupTest, aHotkeyReachesItsServiceBeforeTheContent) {
    EXPECT_TRUE(hotkeys.grant(Key::v, commandShift, HotkeyId{5}));
    QStringList pressed;
    hotkeys.onPressed = [&](HotkeyId id) { pressed << QString::number(std::uint32_t(id)); };
    show();
    hands.tap(KEY_CAPSLOCK);
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    hands.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    hands.tap(KEY_CAPSLOCK);
    hands.type("a");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("a"); }));
    EXPECT_EQ(pressed.join(QLatin1Char(' ')), QStringLiteral("5 5"));
}

TEST_F(PopupTest, aClickOutsideIsReportedOnceAndReachesWhatIsThere) {
    show();
    hands.click(place.topLeft() + QPoint(1, 1));
    EXPECT_TRUE(waitUntil([&] { return content->clicks == 1; }));
    EXPECT_EQ(dismissed(), QString());
    hands.click({100, 100});
    hands.buttonDown(3);
    hands.buttonUp(3);
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty() && sink.clicks() == 2; }));
    EXPECT_EQ(dismissed(), QStringLiteral("outside click"));
}

TEST_F(PopupTest, aWheelOrAMiddleClickOutsideIsNoClickAway) {
    show();
    hands.moveTo({100, 100});
    for (const int button : {2, 4, 5}) {
        hands.buttonDown(button);
        hands.buttonUp(button);
    }
    EXPECT_TRUE(waitUntil([&] { return sink.clicks() == 3; }));
    EXPECT_EQ(dismissed(), QString());
    hands.buttonDown(3);
    hands.buttonUp(3);
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
}

TEST_F(PopupTest, aClickInAMenuThatItOpenedIsInside) {
    show();
    QRasterWindow menu;
    menu.setFlags(Qt::ToolTip);
    menu.setGeometry(800, 300, 100, 100);
    menu.show();
    EXPECT_TRUE(waitUntil([&] { return menu.isExposed(); }));
    hands.click({850, 350});
    EXPECT_EQ(dismissed(), QString());
}

TEST_F(PopupTest, aScreenThatLocksIsReported) {
    show();
    const auto send = [](const char *active) {
        currentSession().run(QStringLiteral("dbus-send"),
                             {QStringLiteral("--session"), QStringLiteral("/org/freedesktop/ScreenSaver"),
                              QStringLiteral("org.freedesktop.ScreenSaver.ActiveChanged"),
                              QLatin1String("boolean:") + QLatin1String(active)});
    };
    send("false");
    send("true");
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
    EXPECT_EQ(dismissed(), QStringLiteral("lock"));
}

TEST_F(PopupTest, withoutInputItIsReportedIdle) {
    X11Panels hasty({displays, keyboard, hotkeys, input, activeWindow, compositor, appearance},
                    std::chrono::milliseconds(300));
    popup = make(PanelKind::popup, hasty);
    QElapsedTimer sinceInput;
    popup->onDismiss = [&](Dismissal why) {
        dismissals << name(why);
        EXPECT_GE(sinceInput.elapsed(), 250);
    };
    show();
    for (int i = 1; i <= 4; ++i) {
        QElapsedTimer pause;
        pause.start();
        EXPECT_TRUE(waitUntil([&] { return pause.elapsed() > 150; }));
        if (i % 2)
            hands.type("a");
        else
            hands.click(place.center());
        sinceInput.start();
    }
    EXPECT_EQ(dismissals.join(QStringLiteral(", ")), QString());
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
    EXPECT_EQ(dismissed(), QStringLiteral("idle"));
    popup.reset();
}

TEST_F(PopupTest, typingThatIsTakenAwayIsReported) {
    show();
    xcb_ungrab_keyboard(qtConnection(), XCB_CURRENT_TIME);
    xcb_flush(qtConnection());
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
    EXPECT_EQ(dismissed(), QStringLiteral("typing lost"));
    hands.type("q");
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("AD01"); }));
}

TEST_F(PopupTest, theLaterOfTwoHoldsTheKeyboard) {
    show();
    Content *first = content;
    auto second = make(PanelKind::popup);
    EXPECT_TRUE(second->show(desktop({800, 400, 300, 300})));
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
    EXPECT_EQ(dismissed(), QStringLiteral("typing lost"));
    hands.type("b");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("b"); }));
    EXPECT_EQ(first->text, QString());
}

TEST_F(PopupTest, whatEndedOneShowIsNotToldToTheNext) {
    show();
    hands.click({100, 100});
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
    dismissals.clear();
    for (int i = 0; i < 5; ++i) {
        popup->orderOut();
        show();
    }
    hands.type("x");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("x"); }));
    EXPECT_EQ(dismissed(), QString());
    hands.click({100, 100});
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
}

TEST_F(PopupTest, mayBeShownAgainBeforeQtHearsThatItWasUp) {
    show();
    popup->orderOut();
    EXPECT_TRUE(waitUntil([&] { return !isMapped(*popup); }));
    settle();
    xcb_map_notify_event_t late{};
    late.response_type = XCB_MAP_NOTIFY;
    late.event = late.window = id(*popup);
    late.override_redirect = true;
    xcb_send_event(session.connection(), false, id(*popup), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&late));
    settle();
    static QStringList complaints;
    const auto handler = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { complaints << text; });
    show();
    qInstallMessageHandler(handler);
    EXPECT_EQ(complaints.join(QLatin1Char('\n')), QString());
    EXPECT_TRUE(isMapped(*popup));
}

TEST_F(PopupTest, withoutACompositorItIsThereOrNot) {
    popup->setOpacity(0);
    EXPECT_TRUE(popup->show(desktop(place)));
    EXPECT_EQ(shape(*popup), QString());
    hands.type("a");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("a"); }));
    popup->setOpacity(0.5);
    EXPECT_TRUE(waitUntil([&] { return shape(*popup) == QStringLiteral("340x300+0+0"); }));
}

}  // namespace
}  // namespace pimloft
