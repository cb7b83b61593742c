// SPDX-License-Identifier: MIT
#include "ui/popover_controller.h"

#include "page_session.h"

#include "keymapper/key_mapper_module.h"
#include "keymapper/key_mapping_store.h"
#include "ui/quick_engine.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QRectF trayIcon(700, 776, 22, 22);

class Popover : public testing::Test {
protected:
    Popover() { session.desktop.panels.blending = false; }
    ~Popover() override { qApp->setLayoutDirection(Qt::LeftToRight); }

    void open() {
        popover.open(trayIcon);
        ASSERT_TRUE(popover.isOpen());
        window()->show();
        session.desktop.log();
    }
    FakePanels::Window *panel() { return session.desktop.panels.existing().at(0); }
    /// The content, which the pretended panel never puts on screen.
    QQuickWindow *window() {
        for (QWindow *each : QGuiApplication::allWindows())
            if (auto *quick = qobject_cast<QQuickWindow *>(each))
                return quick;
        return nullptr;
    }
    QQuickItem *content() { return window()->contentItem()->childItems().at(0); }
    std::string spoken() { return test::spoken(window()).join(QLatin1Char('\n')).toStdString(); }
    test::PageSession session;
    PopoverController popover{session.appState(), session.accessibility(), session.views().engine(),
                              session.desktop.panels, session.desktop.displays};
};

TEST_F(Popover, nothingExistsBeforeItIsOpened) {
    EXPECT_FALSE(session.views().engine().exists());
    EXPECT_TRUE(session.desktop.panels.existing().empty());
}

TEST_F(Popover, saysThis) {
    open();
    EXPECT_EQ(spoken(), "window: Pimloft\n"
                        "heading: Pimloft\n"
                        "button: Open Settings\n"
                        "switch: WindowSnap, enabled [on]\n"
                        "switch: ClipboardPlus, enabled [on]\n"
                        "switch: FinderFix, enabled [on]\n"
                        "switch: KeyMapper, enabled [on]\n"
                        "switch: QuickVolume, enabled [on]\n"
                        "button: Show QuickVolume\n"
                        "button: Quit");
}

TEST_F(Popover, aRowSwitchesItsModuleAtOnceAndForGood) {
    open();
    test::click(test::named(window(), QStringLiteral("QuickVolume, enabled")));
    EXPECT_EQ(session.desktop.log(), "set pimloft.quickvolume.enabled = false\n");
    test::type(window(), Qt::Key_Space);
    EXPECT_EQ(session.desktop.log(), "set pimloft.quickvolume.enabled = true\n");
}

TEST_F(Popover, tabGoesFromTheTopToTheBottom) {
    open();
    QStringList order;
    for (int press = 0; press < 8; ++press) {
        test::type(window(), Qt::Key_Tab);
        order << window()->activeFocusItem()->property("text").toString();
    }
    EXPECT_EQ(order.join(QStringLiteral(", ")).toStdString(),
              "Open Settings, WindowSnap, ClipboardPlus, FinderFix, KeyMapper, QuickVolume, Show "
              "QuickVolume, Quit");
}

TEST_F(Popover, theKeyboardBeginsAtTheTopEachTimeItOpens) {
    open();
    for (int press = 0; press < 3; ++press)
        test::type(window(), Qt::Key_Tab);
    popover.close();
    popover.open(trayIcon);
    test::type(window(), Qt::Key_Tab);
    EXPECT_EQ(window()->activeFocusItem()->property("text").toString(), QStringLiteral("Open Settings"));
}

TEST_F(Popover, aRowsLabelFollowsItsModule) {
    open();
    session.appState().keyMapper()->setEnabled(false);
    EXPECT_NE(spoken().find("switch: KeyMapper, disabled [off]"), std::string::npos) << spoken();
}

TEST_F(Popover, aBadgeTellsWhileKeysAreRemapped) {
    KeyMappingStore::shared().setPreset(KeyMappingPreset::windowsMode, true);
    open();
    const QString badge = QStringLiteral("Active");
    EXPECT_FALSE(test::texts(content()).contains(badge));
    session.appState().keyMapper()->activate();
    EXPECT_TRUE(test::texts(content()).contains(badge));
    for (int time = 0; time < 3; ++time)
        session.desktop.keyTap.press({Key::rightShift, KeyFlags::shift, KeyEventType::flagsChanged});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !test::texts(content()).contains(badge); }))
        << "the panic gesture ends it";
    EXPECT_NE(spoken().find("switch: KeyMapper, enabled [on]"), std::string::npos) << spoken();
}

TEST_F(Popover, warnsWhileThePermissionIsMissing) {
    session.desktop.windows.trusted = false;
    session.accessibility().refresh();
    open();
    const QString warning = QStringLiteral("Accessibility permission is required for some modules");
    EXPECT_TRUE(test::texts(content()).contains(warning));
    const double tall = panel()->frame().height();

    session.desktop.windows.trusted = true;
    session.accessibility().refresh();
    QCoreApplication::processEvents();
    EXPECT_FALSE(test::texts(content()).contains(warning));
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel()->frame().height() < tall; }))
        << "room is kept for the warning";
}

TEST_F(Popover, hangsAtItsAnchor) {
    open();
    EXPECT_EQ(panel()->kind(), PanelKind::popup);
    EXPECT_DOUBLE_EQ(panel()->frame().y() + panel()->frame().height(), trayIcon.y() - 6);
    EXPECT_LE(panel()->frame().x() + panel()->frame().width(), 800);
}

TEST_F(Popover, itsShadowTakesNoRoomFromThePlacement) {
    open();
    const QRectF plain = panel()->frame();
    popover.close();
    session.desktop.panels.blending = true;
    popover.open(trayIcon);
    const QRectF floating = panel()->frame();
    const double shadow = content()->property("shadow").toDouble();
    EXPECT_GT(shadow, 0);
    EXPECT_EQ(floating, plain.adjusted(-shadow, -shadow, shadow, shadow));
}

TEST_F(Popover, escapeCloses) {
    open();
    test::type(window(), Qt::Key_Escape);
    EXPECT_FALSE(popover.isOpen());
    EXPECT_EQ(session.desktop.log(), "give the keyboard back\norder out popup\n");
}

TEST_F(Popover, everyDismissalClosesAndOnlyAClickIsTold) {
    QSignalSpy clicks(&popover, &PopoverController::dismissedByClick);
    for (const Dismissal reason : {Dismissal::otherWindowActivated, Dismissal::screenLocks, Dismissal::idle,
                                   Dismissal::typingLost, Dismissal::outsideClick}) {
        open();
        panel()->dismiss(reason);
        EXPECT_FALSE(popover.isOpen());
        EXPECT_EQ(clicks.size(), reason == Dismissal::outsideClick ? 1 : 0);
    }
}

TEST_F(Popover, openingItAgainWhileOpenChangesNothing) {
    open();
    popover.open(QRectF(10, 10, 22, 22));
    EXPECT_EQ(session.desktop.log(), "");
}

TEST_F(Popover, staysAwayWhileAnotherProgramHoldsTheKeyboard) {
    session.desktop.panels.keyboardIsTaken = true;
    popover.open(trayIcon);
    EXPECT_FALSE(popover.isOpen());
    session.desktop.panels.keyboardIsTaken = false;
    open();
}

TEST_F(Popover, staysAwayWithoutADisplay) {
    session.desktop.displays.list.clear();
    popover.open(trayIcon);
    EXPECT_FALSE(popover.isOpen());
}

TEST_F(Popover, openSettingsAndQuitCloseItFirst) {
    QSignalSpy settings(&popover, &PopoverController::settingsRequested);
    open();
    popover.openSettings();
    EXPECT_FALSE(popover.isOpen());
    EXPECT_EQ(settings.size(), 1);

    QSignalSpy quit(&popover, &PopoverController::quitRequested);
    open();
    popover.quit();
    EXPECT_FALSE(popover.isOpen());
    EXPECT_EQ(quit.size(), 1);
}

TEST_F(Popover, letsTheEngineGoAndComesBack) {
    open();
    popover.close();
    emit session.views().engine().viewsHaveToGo();
    EXPECT_TRUE(session.desktop.panels.existing().empty());
    open();
    EXPECT_NE(spoken().find("button: Quit"), std::string::npos);
}

TEST_F(Popover, isMirroredForLanguagesFromRightToLeft) {
    open();
    const auto place = [this] { return test::named(window(), QStringLiteral("Quit"))->mapToScene({}).x(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return place() > 150; }));
    qApp->setLayoutDirection(Qt::RightToLeft);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place() < 50; }));
}

}  // namespace
}  // namespace pimloft
