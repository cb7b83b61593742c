// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_popup_controller.h"

#include "clipboard/clipboard_engine.h"
#include "clipboard/clipboard_popup.h"
#include "history.h"
#include "support/animation_clock.h"
#include "support/plain_views.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr const char *pasteKey = "post key 9 with flags 0x100000\n";

struct Controller : testing::Test {
    Controller() {
        desktop.displays.add(DisplayId(1), {0, 0, 1440, 900});
        desktop.panels.blending = false;
        desktop.mouse.pointer = {700, 500};
        history.hold({test::text("b"), test::text("a")});
        desktop.log();
    }
    FakePanels::Window &window() { return *desktop.panels.existing().at(0); }
    ClipboardPopup &popup() {
        return *qobject_cast<ClipboardPopup *>(
            views.asked.back().properties[QStringLiteral("popup")].value<QObject *>());
    }
    void open() {
        controller.show();
        clock.pass(150);
        desktop.log();
    }

    test::History history;
    FakeDesktop &desktop = history.desktop;
    test::AnimationClock clock;
    test::PlainViews views;
    bool hasViews = true;
    ClipboardEngine engine{desktop.pasteboard, desktop.workspace,   desktop.keys,
                           history.store,      desktop.preferences, history.clock};
    ClipboardPopupController controller{
        history.store,
        engine,
        {desktop.displays, desktop.mouse, desktop.panels, desktop.workspace, history.clock},
        [this]() -> ViewHost * { return hasViews ? &views : nullptr; }};
};

TEST_F(Controller, nothingIsOpenAtFirst) {
    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Controller, opensAPopupCentredOnThePointer) {
    controller.show();
    EXPECT_TRUE(controller.isOpen());
    EXPECT_EQ(desktop.log(), "show popup at (530, 290) 340 x 420\n");
    EXPECT_EQ(window().kind(), PanelKind::popup);
    EXPECT_EQ(views.asked.at(0).source.fileName(), QStringLiteral("ClipboardPopup.qml"));
}

TEST_F(Controller, aPointerInTheBottomRightCornerKeepsItInsideTheScreen) {
    desktop.mouse.pointer = {1440, 0};
    controller.show();
    EXPECT_EQ(desktop.log(), "show popup at (1092, 8) 340 x 420\n");
}

TEST_F(Controller, itsShadowTakesNoRoomFromThePlacement) {
    desktop.panels.blending = true;
    desktop.mouse.pointer = {1440, 0};
    controller.show();
    const double shadow = views.asked.at(0).properties[QStringLiteral("shadow")].toDouble();
    EXPECT_GT(shadow, 0);
    EXPECT_EQ(window().frame(), QRectF(1092, 8, 340, 420).adjusted(-shadow, -shadow, shadow, shadow));
}

TEST_F(Controller, opensOnTheMainDisplayWhereNoneHoldsThePointer) {
    desktop.displays.add(DisplayId(2), {1440, 0, 800, 600});
    desktop.displays.main = DisplayId(2);
    desktop.mouse.pointer = {500, -100};
    controller.show();
    EXPECT_EQ(window().frame().topLeft(), QPointF(1448, 8));
}

TEST_F(Controller, staysAwayWithoutADisplay) {
    desktop.displays.list.clear();
    controller.show();
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(Controller, staysAwayWithoutAUserInterface) {
    hasViews = false;
    controller.show();
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(Controller, aRefusedKeyboardOpensNothing) {
    desktop.panels.keyboardIsTaken = true;
    controller.show();
    EXPECT_FALSE(controller.isOpen());
    EXPECT_FALSE(controller.popupWindow());
    EXPECT_TRUE(desktop.panels.existing().empty());
    desktop.panels.keyboardIsTaken = false;
    controller.show();
    EXPECT_TRUE(controller.isOpen());
}

TEST_F(Controller, fadesInFastAtFirstWithin150Milliseconds) {
    desktop.panels.blending = true;
    controller.show();
    EXPECT_EQ(window().opacity(), 0);
    clock.pass(75);
    EXPECT_NEAR(window().opacity(), 0.685, 0.01);
    clock.pass(74);
    EXPECT_LT(window().opacity(), 1);
    clock.pass(1);
    EXPECT_EQ(window().opacity(), 1);
}

TEST_F(Controller, fadesOutSlowlyAtFirstWithin100MillisecondsAndIsThenGone) {
    desktop.panels.blending = true;
    open();
    controller.hide();
    clock.pass(50);
    EXPECT_NEAR(window().opacity(), 1 - 0.315, 0.01);
    clock.pass(49);
    EXPECT_TRUE(controller.isOpen());
    clock.pass(1);
    EXPECT_FALSE(controller.isOpen());
    EXPECT_TRUE(desktop.panels.existing().empty());
}

TEST_F(Controller, givesTheKeyboardBackBeforeItFades) {
    open();
    controller.hide();
    EXPECT_EQ(desktop.log(), "give the keyboard back\n");
    clock.pass(100);
    EXPECT_EQ(desktop.log(), "order out popup\n");
}

TEST_F(Controller, showingAgainChangesNothing) {
    open();
    controller.show();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(views.asked.size(), 1u);
}

TEST_F(Controller, aShowWhileItFadesOutIsTooEarly) {
    open();
    controller.hide();
    clock.pass(50);
    controller.show();
    clock.pass(50);
    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(views.asked.size(), 1u);
}

TEST_F(Controller, hidingWithoutAPopupDoesNothing) {
    history.store.setSearchQuery(QStringLiteral("x"));
    controller.hide();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(history.store.searchQuery(), QStringLiteral("x"));
}

TEST_F(Controller, hidingTwiceDoesNotDelayTheEnd) {
    open();
    controller.hide();
    clock.pass(60);
    controller.hide();
    clock.pass(40);
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(Controller, hidingEmptiesTheSearchAtOnce) {
    open();
    popup().setSearchQuery(QStringLiteral("query"));
    controller.hide();
    EXPECT_EQ(history.store.searchQuery(), QString());
    EXPECT_TRUE(controller.isOpen()) << "still fading";
}

TEST_F(Controller, typingAQueryClosingAndReopeningShowsTheFullList) {
    open();
    popup().setSearchQuery(QStringLiteral("a"));
    EXPECT_EQ(popup().entries()->rowCount(), 1);
    controller.hide();
    clock.pass(100);
    controller.show();
    EXPECT_EQ(popup().searchQuery(), QString());
    EXPECT_EQ(popup().entries()->rowCount(), 2);
}

TEST_F(Controller, whatIsTypedWhileItFadesIsNotLookedForTheNextTime) {
    open();
    controller.hide();
    popup().setSearchQuery(QStringLiteral("late"));
    clock.pass(100);
    controller.show();
    EXPECT_EQ(popup().searchQuery(), QString());
}

TEST_F(Controller, nothingOfTheLastPopupSurvives) {
    open();
    popup().select(1);
    controller.hide();
    clock.pass(100);
    open();
    EXPECT_FALSE(popup().selectedID());
    EXPECT_EQ(views.asked.size(), 2u);
}

TEST_F(Controller, everyDismissalHidesIt) {
    for (const Dismissal reason : {Dismissal::outsideClick, Dismissal::otherWindowActivated,
                                   Dismissal::screenLocks, Dismissal::idle, Dismissal::typingLost}) {
        open();
        window().dismiss(reason);
        EXPECT_EQ(desktop.log(), "give the keyboard back\n");
        clock.pass(100);
        EXPECT_FALSE(controller.isOpen());
    }
}

TEST_F(Controller, theViewMayDismissIt) {
    open();
    popup().dismiss();
    clock.pass(100);
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(Controller, pastingWritesTypesAndHides) {
    open();
    popup().paste(1);
    const std::string log = desktop.log();
    EXPECT_NE(log.find("write"), std::string::npos) << log;
    EXPECT_LT(log.find("write"), log.find(pasteKey)) << log;
    EXPECT_LT(log.find(pasteKey), log.find("give the keyboard back")) << log;
    clock.pass(100);
    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(history.store.items().front().preview(), QStringLiteral("b")) << "the order of the history";
}

TEST_F(Controller, goesWithItsOwnerWhileItFades) {
    {
        ClipboardPopupController shortLived(
            history.store, engine,
            {desktop.displays, desktop.mouse, desktop.panels, desktop.workspace, history.clock},
            [this] { return &views; });
        shortLived.show();
        clock.pass(20);
        shortLived.hide();
    }
    EXPECT_TRUE(desktop.panels.existing().empty());
    clock.pass(200);
}

}  // namespace
}  // namespace pimloft
