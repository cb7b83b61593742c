// SPDX-License-Identifier: MIT
#include "windowsnap/window_snap_engine.h"

#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "platform/fake_desktop.h"
#include "support/animation_clock.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Engine : testing::Test {
    Engine() {
        desktop.displays.add(DisplayId(1), {0, 0, 1920, 1080});
        editor = &desktop.windows.open(QStringLiteral("Editor"), ProcessId(7), {300, 200, 800, 600});
        desktop.log();
    }

    void dragToTheLeftEdge() {
        desktop.mouse.down({500, 210});
        desktop.mouse.drag({0, 540});
    }

    FakeDesktop desktop;
    FakeWindows::Window *editor;
    test::AnimationClock clock;
    HotkeyManager hotkeys{desktop.hotkeys};
    SettingsManager settings{desktop.preferences, desktop.loginItem};
    std::unique_ptr<WindowSnapEngine> engine = std::make_unique<WindowSnapEngine>(
        desktop.mouse, desktop.displays, desktop.windows, desktop.panels, hotkeys, settings);
};

/// Control and Command are 0x1000 and 0x100.
constexpr auto registrations = "grant key 123 with modifiers 0x1100 as 1\n"
                               "grant key 124 with modifiers 0x1100 as 2\n"
                               "grant key 126 with modifiers 0x1100 as 3\n"
                               "grant key 125 with modifiers 0x1100 as 4\n"
                               "grant key 18 with modifiers 0x1100 as 5\n"
                               "grant key 19 with modifiers 0x1100 as 6\n"
                               "grant key 20 with modifiers 0x1100 as 7\n"
                               "grant key 21 with modifiers 0x1100 as 8\n"
                               "grant key 23 with modifiers 0x1100 as 9\n"
                               "grant key 22 with modifiers 0x1100 as 10\n";

TEST_F(Engine, isIdleAtFirst) {
    EXPECT_FALSE(engine->isActive());
    EXPECT_FALSE(engine->hasEventTap());
    EXPECT_FALSE(engine->isDragging());
    EXPECT_EQ(engine->dragStartLocation(), QPointF());
    EXPECT_EQ(engine->currentSnapZone(), std::nullopt);
    EXPECT_EQ(engine->currentScreen(), std::nullopt);
    EXPECT_TRUE(engine->previousFrames().empty());
    EXPECT_TRUE(engine->hotkeyIDs().empty());
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, startsByWatchingTheMouseAndTakingTheTenShortcuts) {
    engine->start();
    EXPECT_EQ(desktop.log(), std::string("watch the mouse\n") + registrations);
    EXPECT_TRUE(engine->isActive());
    EXPECT_EQ(engine->hotkeyIDs(), (std::vector<std::uint32_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(Engine, startingTwiceDoesNothingTheSecondTime) {
    engine->start();
    desktop.log();
    engine->start();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, aRefusedTapIsReportedAndLeavesTheShortcuts) {
    desktop.mouse.refuses = true;
    testing::internal::CaptureStdout();
    engine->start();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "WindowSnapEngine: Failed to create event tap. Accessibility permission may be missing.\n");
    EXPECT_EQ(desktop.log(), registrations);
    EXPECT_FALSE(engine->hasEventTap());
    EXPECT_TRUE(engine->isActive());
    desktop.hotkeys.press(Key::upArrow, snapModifiers);
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.log(), "place Editor at (0, 0) 1920 x 1080\n");
    engine->stop();
}

TEST_F(Engine, watchesTheMouseOnceHoweverOftenItIsToldTo) {
    engine->setupEventTap();
    engine->setupEventTap();
    EXPECT_EQ(desktop.log(), "watch the mouse\n");
}

TEST_F(Engine, stopsWatchingAndForgetsItsShortcuts) {
    engine->start();
    desktop.log();
    engine->stop();
    EXPECT_EQ(desktop.log(), "stop watching the mouse\n");
    EXPECT_FALSE(engine->isActive());
    EXPECT_TRUE(engine->hotkeyIDs().empty());
}

TEST_F(Engine, stoppingWhenItIsNotRunningDoesNothing) {
    engine->stop();
    engine->removeEventTap();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, startingAgainTakesTheShortcutsAfreshUnderNewIds) {
    engine->start();
    engine->stop();
    engine->start();
    EXPECT_EQ(engine->hotkeyIDs().front(), 11u);
    desktop.log();
    desktop.hotkeys.press(Key::leftArrow, snapModifiers);
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.log(), "place Editor at (0, 0) 960 x 1080\n");
}

TEST_F(Engine, aShortcutThatAnotherProgramOwnsLeavesTheOthers) {
    desktop.hotkeys.take(Key::upArrow, snapModifiers);
    engine->start();
    EXPECT_EQ(engine->hotkeyIDs().size(), 10u);
    desktop.log();
    desktop.hotkeys.press(Key::upArrow, snapModifiers);
    desktop.hotkeys.press(Key::rightArrow, snapModifiers);
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.log(), "place Editor at (960, 0) 960 x 1080\n");
}

TEST_F(Engine, stoppingLeavesTheDisplayAndTheRememberedFrames) {
    engine->start();
    engine->snapFocusedWindow(SnapZone::left, std::nullopt);
    dragToTheLeftEdge();
    engine->stop();
    EXPECT_FALSE(engine->isDragging());
    EXPECT_EQ(engine->currentSnapZone(), std::nullopt);
    EXPECT_EQ(engine->currentScreen(), desktop.displays.list.front());
    EXPECT_EQ(engine->previousFrames(), (std::map<ProcessId, QRectF>{{ProcessId(7), {300, 200, 800, 600}}}));
}

TEST_F(Engine, anOverlayThatIsStillToBeShownWhenItStopsIsNot) {
    engine->start();
    dragToTheLeftEdge();
    engine->stop();
    desktop.log();
    clock.pass(300);
    EXPECT_EQ(desktop.log(), "");
    EXPECT_TRUE(desktop.panels.existing().empty());
}

TEST_F(Engine, holdsUpNoEventForOverlayOrPlacement) {
    engine->start();
    desktop.log();
    dragToTheLeftEdge();
    desktop.mouse.up({0, 540});
    EXPECT_EQ(desktop.log(), "") << "work was done within the events";
    clock.pass(200);
    EXPECT_EQ(desktop.log(), "show overlay at (0, 0) 960 x 1080\n"
                             "place Editor at (0, 0) 960 x 1080\n"
                             "order out overlay\n");
}

TEST_F(Engine, postedWorkAndShortcutsDieWithIt) {
    engine->start();
    dragToTheLeftEdge();
    desktop.mouse.up({0, 540});
    desktop.hotkeys.press(Key::leftArrow, snapModifiers);
    desktop.log();
    engine.reset();
    clock.pass(200);
    desktop.hotkeys.press(Key::leftArrow, snapModifiers);
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.log(), "stop watching the mouse\n");
}

TEST_F(Engine, asksNobodyBeforeTheThresholdAndOnlyOnceAfterIt) {
    engine->start();
    desktop.mouse.down({500, 500});
    for (double x = 500; x <= 505; ++x)
        desktop.mouse.drag({x, 500});
    EXPECT_EQ(desktop.windows.focusedWindowQueries, 0);
    desktop.mouse.drag({506, 500});
    desktop.mouse.drag({600, 500});
    EXPECT_EQ(desktop.windows.focusedWindowQueries, 1);
}

TEST_F(Engine, convertsEventLocationsToDesktopPoints) {
    engine->setupEventTap();
    desktop.mouse.down({500, 210});
    EXPECT_EQ(engine->dragStartLocation(), QPointF(500, 870));
}

TEST_F(Engine, leavesEventLocationsAsTheyAreWhileThereIsNoDisplay) {
    desktop.displays.list.clear();
    engine->setupEventTap();
    desktop.mouse.down({500, 210});
    EXPECT_EQ(engine->dragStartLocation(), QPointF(500, 210));
}

TEST_F(Engine, aReleaseResetsTheDragInEveryCase) {
    engine->setupEventTap();
    dragToTheLeftEdge();
    EXPECT_TRUE(engine->isDragging());
    EXPECT_EQ(engine->currentSnapZone(), SnapZone::left);
    desktop.mouse.up({0, 540});
    EXPECT_FALSE(engine->isDragging());
    EXPECT_EQ(engine->currentSnapZone(), std::nullopt);
    EXPECT_EQ(engine->currentScreen(), std::nullopt);
}

TEST_F(Engine, aPressResetsTheDragOnly) {
    engine->setupEventTap();
    dragToTheLeftEdge();
    desktop.mouse.down({0, 540});
    EXPECT_FALSE(engine->isDragging());
    EXPECT_EQ(engine->currentSnapZone(), SnapZone::left);
}

TEST_F(Engine, findsTheFirstDisplayThatContainsAPoint) {
    desktop.displays.add(DisplayId(2), {1920, 0, 1280, 1024});
    EXPECT_EQ(engine->screenContaining({100, 100})->id, DisplayId(1));
    EXPECT_EQ(engine->screenContaining({2000, 100})->id, DisplayId(2));
    EXPECT_EQ(engine->screenContaining({100, 1080})->id, DisplayId(1)) << "the pointer's topmost row";
}

TEST_F(Engine, takesTheMainDisplayForAPointThatNoneContains) {
    desktop.displays.add(DisplayId(2), {1920, 0, 1280, 1024});
    desktop.displays.main = DisplayId(2);
    EXPECT_EQ(engine->screenContaining({2500, 1060})->id, DisplayId(2));
    EXPECT_EQ(engine->screenContaining({-500, 0})->id, DisplayId(2));
    desktop.displays.list.clear();
    EXPECT_EQ(engine->screenContaining({0, 0}), std::nullopt);
}

TEST_F(Engine, snapsToAGivenDisplayOrRectangle) {
    const Display second{DisplayId(2), {1920, 0, 1280, 1024}, {1920, 0, 1280, 1000}};
    engine->snapFocusedWindow(SnapZone::topRight, second);
    EXPECT_EQ(desktop.log(), "place Editor at (2560, 80) 640 x 500\n");
    engine->snapFocusedWindow(QRectF(10, 20, 300, 400));
    EXPECT_EQ(desktop.log(), "place Editor at (10, 660) 300 x 400\n");
    EXPECT_EQ(engine->previousFrames().at(ProcessId(7)), QRectF(2560, 80, 640, 500));
}

TEST_F(Engine, aWindowThatClosesWhileItIsReadIsNotRemembered) {
    editor->readable = false;
    engine->snapFocusedWindow(SnapZone::left, std::nullopt);
    EXPECT_TRUE(engine->previousFrames().empty());
}

TEST_F(Engine, aWindowWhoseSizeCannotBeHadIsPlacedButNotRemembered) {
    editor->sizeKnown = false;
    engine->snapFocusedWindow(SnapZone::left, std::nullopt);
    EXPECT_EQ(desktop.log(), "place Editor at (0, 0) 960 x 1080\n");
    EXPECT_TRUE(engine->previousFrames().empty());
}

TEST(WindowSnapEngine, hasOneSharedInstanceOnTheProcesssServices) {
    FakeDesktop desktop;
    desktop.displays.add(DisplayId(1), {0, 0, 1000, 1000});
    SystemClock clock;
    Process process(desktop.platform(), clock, {});
    WindowSnapEngine &engine = WindowSnapEngine::shared();
    EXPECT_EQ(&engine, &WindowSnapEngine::shared());
    engine.start();
    EXPECT_TRUE(desktop.mouse.isWatched());
    EXPECT_EQ(engine.hotkeyIDs().size(), 10u);
}

}  // namespace
}  // namespace pimloft
