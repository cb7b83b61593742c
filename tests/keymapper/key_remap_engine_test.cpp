// SPDX-License-Identifier: MIT
#include "keymapper/key_remap_engine.h"

#include "app/notification_center.h"
#include "keymapper/key_remap_filter.h"
#include "platform/fake_desktop.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <thread>

namespace pimloft {
namespace {

using enum KeyFlags;

const KeyMappings aRule{{.fromKeyCode = Key::home, .toKeyCode = Key::leftArrow, .toModifiers = command}};

class Engine : public testing::Test {
protected:
    Engine() { engine.emplace(desktop.keyTap, desktop.workspace, notifications); }

    KeyEvent press(KeyCode key, KeyFlags flags = none) {
        return desktop.keyTap.press({key, flags, KeyEventType::down});
    }
    void rightShift(int times = 1) {
        for (int time = 0; time < times; ++time)
            desktop.keyTap.press({Key::rightShift, shift, KeyEventType::flagsChanged});
    }
    bool swaps() { return press(Key::c, control).flags == command; }
    void bringToFront(const std::optional<QString> &bundleId) {
        desktop.workspace.bringToFront({QStringLiteral("App"), bundleId, ProcessId(1)});
    }

    FakeDesktop desktop;
    NotificationCenter notifications;
    std::optional<KeyRemapEngine> engine;
};

TEST_F(Engine, installsNothingWhenThereIsNothingToDo) {
    engine->start({}, false);
    EXPECT_FALSE(engine->isActive());
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, installsATapForRulesOrForWindowsMode) {
    engine->start(aRule, false);
    EXPECT_TRUE(engine->isActive());
    EXPECT_EQ(engine->activeMappings(), aRule);
    EXPECT_EQ(press(Key::home).key, Key::leftArrow);
    EXPECT_FALSE(swaps());
    engine->start({}, true);
    EXPECT_TRUE(engine->isActive());
    EXPECT_TRUE(engine->isWindowsModeEnabled());
    EXPECT_TRUE(swaps());
    EXPECT_EQ(press(Key::home).key, Key::home) << "the old rules are gone";
    EXPECT_EQ(desktop.log(), "install key tap\nremove key tap\ninstall key tap\n");
}

TEST_F(Engine, startingWithNothingStopsWhatRan) {
    engine->start(aRule, true);
    engine->start({}, false);
    EXPECT_FALSE(engine->isActive());
    EXPECT_EQ(desktop.log(), "install key tap\nremove key tap\n");
}

TEST_F(Engine, stoppingRemovesTheTapAndForgetsEverything) {
    engine->start(aRule, true);
    engine->stop();
    EXPECT_FALSE(engine->isActive());
    EXPECT_TRUE(engine->activeMappings().empty());
    EXPECT_FALSE(engine->isWindowsModeEnabled());
    EXPECT_EQ(desktop.log(), "install key tap\nremove key tap\n");
    engine->stop();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, reportsARefusedTapInOneLineAndStaysInactive) {
    desktop.keyTap.refuses = true;
    testing::internal::CaptureStdout();
    engine->start(aRule, true);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "KeyRemapEngine: Failed to create event tap\n");
    EXPECT_FALSE(engine->isActive());
    EXPECT_EQ(engine->activeMappings(), aRule);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, canStartAfterARefusal) {
    desktop.keyTap.refuses = true;
    testing::internal::CaptureStdout();
    engine->start({}, true);
    testing::internal::GetCapturedStdout();
    desktop.keyTap.refuses = false;
    engine->start({}, true);
    EXPECT_TRUE(swaps());
}

TEST_F(Engine, switchesATapOnAgainThatTheDesktopSwitchedOff) {
    engine->start({}, true);
    desktop.log();
    QSignalSpy changed(&*engine, &KeyRemapEngine::isActiveChanged);
    for (const auto notice : {KeyTap::Notice::disabledByTimeout, KeyTap::Notice::disabledByUserInput}) {
        desktop.keyTap.disable(notice);
        EXPECT_EQ(desktop.log(), "enable key tap\n");
        EXPECT_TRUE(swaps());
    }
    EXPECT_TRUE(engine->isActive());
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(Engine, aNoticeThatComesAfterTheStopSwitchesNothingOn) {
    engine->start({}, true);
    engine->stop();
    desktop.log();
    desktop.keyTap.disable(KeyTap::Notice::disabledByTimeout);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(Engine, tellsWhetherItIsActive) {
    QSignalSpy changed(&*engine, &KeyRemapEngine::isActiveChanged);
    engine->start({}, true);
    EXPECT_EQ(changed.count(), 1);
    engine->stop();
    EXPECT_EQ(changed.count(), 2);
    engine->stop();
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(Engine, knowsTheApplicationInFrontFromTheFirstKeyOn) {
    bringToFront(QStringLiteral("com.apple.Terminal"));
    engine->start({}, true);
    EXPECT_FALSE(swaps());
}

TEST_F(Engine, followsTheApplicationInFront) {
    engine->start({}, true);
    EXPECT_TRUE(swaps()) << "nothing is in front";
    bringToFront(QStringLiteral("net.kovidgoyal.kitty"));
    EXPECT_FALSE(swaps());
    bringToFront(QStringLiteral("org.example.Editor"));
    EXPECT_TRUE(swaps());
    bringToFront(QStringLiteral("com.apple.Terminal"));
    bringToFront(std::nullopt);
    EXPECT_TRUE(swaps()) << "an application without an identifier is no terminal";
}

TEST_F(Engine, learnsWhatCameToTheFrontWhileItWasStopped) {
    engine->start({}, true);
    engine->stop();
    bringToFront(QStringLiteral("com.apple.Terminal"));
    engine->start({}, true);
    EXPECT_FALSE(swaps());
}

TEST_F(Engine, aPanicPassesEverythingAtOnceAndStopsFromTheEventLoop) {
    engine->start(aRule, true);
    QStringList told;
    notifications.observe(panicDisableNotification, &*engine, [&] {
        told << (engine->isActive() ? QStringLiteral("still active") : QStringLiteral("stopped"));
    });
    rightShift(3);
    EXPECT_FALSE(swaps()) << "the main thread has not come to it yet";
    EXPECT_TRUE(engine->isActive());
    EXPECT_TRUE(told.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_FALSE(engine->isActive());
    EXPECT_TRUE(engine->activeMappings().empty());
    EXPECT_EQ(told, QStringList{QStringLiteral("stopped")});
    EXPECT_EQ(desktop.log(), "install key tap\nremove key tap\n");
}

TEST_F(Engine, aPanicOnTheTapsThreadIsHandledOnTheMainThread) {
    engine->start({}, true);
    std::thread tap([this] { rightShift(3); });
    tap.join();
    EXPECT_TRUE(engine->isActive());
    QCoreApplication::processEvents();
    EXPECT_FALSE(engine->isActive());
}

TEST_F(Engine, canStartAgainAfterAPanic) {
    engine->start({}, true);
    rightShift(3);
    QCoreApplication::processEvents();
    engine->start({}, true);
    EXPECT_TRUE(swaps());
}

TEST_F(Engine, aPanicThatIsStillPostedDiesWithTheEngine) {
    engine->start({}, true);
    rightShift(3);
    int told = 0;
    notifications.observe(panicDisableNotification, &notifications, [&] { ++told; });
    engine.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 0);
}

TEST_F(Engine, stopLeavesWhatIsCountedOfTheGesture) {
    engine->start({}, true);
    rightShift(2);
    engine->stop();
    EXPECT_EQ(engine->filter().rightShiftPressCount(), 2);
    engine->start({}, true);
    rightShift();
    QCoreApplication::processEvents();
    EXPECT_FALSE(engine->isActive());
}

TEST_F(Engine, letsTheKeyboardGoAtItsEnd) {
    engine->start({}, true);
    engine.reset();
    EXPECT_EQ(desktop.log(), "install key tap\nremove key tap\n");
    bringToFront(QStringLiteral("org.example.Editor"));
    desktop.keyTap.disable(KeyTap::Notice::disabledByTimeout);
}

TEST(NotificationCenter, callsTheObserversOfThatNameInTheirOrder) {
    NotificationCenter center;
    QObject first;
    QStringList calls;
    center.observe(QStringLiteral("a"), &first, [&] { calls << QStringLiteral("first"); });
    center.observe(QStringLiteral("b"), &first, [&] { calls << QStringLiteral("other"); });
    center.observe(QStringLiteral("a"), &first, [&] { calls << QStringLiteral("second"); });
    center.post(QStringLiteral("a"));
    EXPECT_EQ(calls.join(u' ').toStdString(), "first second");
}

TEST(NotificationCenter, forgetsAnObserverWhoseContextIsGone) {
    NotificationCenter center;
    int calls = 0;
    {
        QObject context;
        center.observe(QStringLiteral("a"), &context, [&] { ++calls; });
    }
    center.post(QStringLiteral("a"));
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace pimloft
