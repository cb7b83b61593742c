// SPDX-License-Identifier: MIT
#include "app/accessibility_manager.h"

#include "platform/fake_desktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// Tests poll as fast as the event loop turns; the interval is the caller's.
constexpr double atOnce = 0;

TEST(AccessibilityManager, knowsThePermissionFromItsConstruction) {
    FakeDesktop desktop;
    desktop.windows.trusted = false;
    EXPECT_FALSE(AccessibilityManager(desktop.windows).isAccessibilityGranted());
    desktop.windows.trusted = true;
    EXPECT_TRUE(AccessibilityManager(desktop.windows).isAccessibilityGranted());
}

TEST(AccessibilityManager, runsTheActionOnceAfterTheGrantAndStopsPolling) {
    FakeDesktop desktop;
    desktop.windows.trusted = false;
    AccessibilityManager manager(desktop.windows);
    QSignalSpy changed(&manager, &AccessibilityManager::isAccessibilityGrantedChanged);
    int granted = 0;
    manager.startPolling(atOnce, [&] { ++granted; });
    QCoreApplication::processEvents();
    EXPECT_EQ(granted, 0);

    desktop.windows.trusted = true;
    ASSERT_TRUE(changed.wait());
    EXPECT_TRUE(manager.isAccessibilityGranted());
    QCoreApplication::processEvents();
    EXPECT_EQ(granted, 1);

    desktop.windows.trusted = false;
    QCoreApplication::processEvents();
    EXPECT_TRUE(manager.isAccessibilityGranted()) << "a further tick happened";
    EXPECT_EQ(granted, 1);
}

TEST(AccessibilityManager, aSecondWatchReplacesTheFirst) {
    FakeDesktop desktop;
    desktop.windows.trusted = false;
    AccessibilityManager manager(desktop.windows);
    QSignalSpy changed(&manager, &AccessibilityManager::isAccessibilityGrantedChanged);
    QStringList ran;
    manager.startPolling(atOnce, [&] { ran << QStringLiteral("first"); });
    manager.startPolling(atOnce, [&] { ran << QStringLiteral("second"); });
    desktop.windows.trusted = true;
    ASSERT_TRUE(changed.wait());
    QCoreApplication::processEvents();
    EXPECT_EQ(ran, QStringList{QStringLiteral("second")});
}

}  // namespace
}  // namespace pimloft
