// SPDX-License-Identifier: MIT
// What a popup makes of a window manager's doings.
#include "panel_desktop.h"

namespace pimloft {
namespace {

using namespace test;

constexpr QRect place(400, 400, 340, 300);

struct ManagedPopupTest : PanelDesktop {
    std::vector<Dismissal> dismissals;
    std::unique_ptr<Panel> popup = make(PanelKind::popup);

    ManagedPopupTest() {
        popup->onDismiss = [this](Dismissal why) { dismissals.push_back(why); };
    }

    void show() {
        EXPECT_TRUE(popup->show(desktop(place)));
        EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    }
};

TEST_F(ManagedPopupTest, leavesTheActiveWindowActive) {
    const xcb_window_t active = activeWindow.current();
    EXPECT_EQ(active, sink.window());
    show();
    hands.type("a");
    EXPECT_TRUE(waitUntil([&] { return content->text == QStringLiteral("a"); }));
    hands.click(place.center());
    EXPECT_TRUE(waitUntil([&] { return content->clicks == 1; }));
    EXPECT_EQ(activeWindow.current(), active);
    popup->orderOut();
    settle();
    EXPECT_EQ(activeWindow.current(), active);
    EXPECT_TRUE(dismissals.empty());
}

TEST_F(ManagedPopupTest, reportsAnotherWindowThatAProgramActivates) {
    KeySink another({600, 100, 200, 200});
    sink.activate();
    show();
    settle();
    EXPECT_TRUE(dismissals.empty());
    another.activate();
    EXPECT_TRUE(waitUntil([&] { return !dismissals.empty(); }));
    EXPECT_EQ(dismissals, std::vector{Dismissal::otherWindowActivated});
}

TEST_F(ManagedPopupTest, isSeenAboveAFullScreenWindow) {
    constexpr std::uint32_t add = 1;
    session.sendToRoot(sink.window(), session.atom("_NET_WM_STATE"),
                       {add, session.atom("_NET_WM_STATE_FULLSCREEN"), 0, 1, 0});
    EXPECT_TRUE(
        waitUntil([&] { return !session.property32(sink.window(), session.atom("_NET_WM_STATE")).empty(); }));
    show();
    hands.click(place.center());
    EXPECT_TRUE(waitUntil([&] { return content->clicks == 1; }));
}

TEST_F(ManagedPopupTest, theWindowManagersShortcutsDoNotActWhileItIsTypedInto) {
    KeySink another({600, 100, 200, 200});
    sink.activate();
    show();
    hands.chord({KEY_LEFTALT, KEY_TAB});
    hands.type("a");
    EXPECT_TRUE(waitUntil([&] { return content->text.endsWith(QLatin1Char('a')); }));
    settle();
    EXPECT_TRUE(sink.isActive());
}

}  // namespace
}  // namespace pimloft
