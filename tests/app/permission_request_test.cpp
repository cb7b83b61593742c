// SPDX-License-Identifier: MIT
#include "app/permission_request.h"

#include "app/accessibility_manager.h"
#include "platform/fake_desktop.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class PermissionRequestTest : public testing::Test {
protected:
    /// As a desktop that does not trust the program, yet.
    WindowService &untrusting() {
        desktop.windows.trusted = false;
        return desktop.windows;
    }
    bool becomesGranted() {
        return QTest::qWaitFor([this] { return granted > 0; });
    }

    FakeDesktop desktop;
    AccessibilityManager accessibility{untrusting()};
    int granted = 0;
    std::unique_ptr<PermissionRequest> request =
        std::make_unique<PermissionRequest>(accessibility, desktop.workspace, [this] { ++granted; });
};

TEST_F(PermissionRequestTest, looksEachTimeItIsShown) {
    request->appear();
    EXPECT_FALSE(accessibility.isAccessibilityGranted());
    desktop.windows.trusted = true;
    request->appear();
    EXPECT_TRUE(accessibility.isAccessibilityGranted());
    EXPECT_EQ(granted, 0) << "the user sees nothing of it";
    EXPECT_TRUE(becomesGranted());
}

TEST_F(PermissionRequestTest, asksNothingOfTheDesktopBeforeTheUserDoes) {
    request->appear();
    EXPECT_EQ(desktop.log(), "");
    desktop.windows.trusted = true;
    QTest::qWait(1100);  // longer than between two looks
    EXPECT_FALSE(accessibility.isAccessibilityGranted()) << "it polls by itself";
}

TEST_F(PermissionRequestTest, opensTheSettingsAndLooksEverySecondUntilItIsGranted) {
    request->openSystemSettings();
    EXPECT_EQ(desktop.log(),
              "open x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility\n");
    desktop.windows.trusted = true;
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(becomesGranted());
    EXPECT_GE(elapsed.elapsed(), 900);
    EXPECT_TRUE(accessibility.isAccessibilityGranted());
    EXPECT_EQ(granted, 1);
}

TEST_F(PermissionRequestTest, skippingGoesOnAtOnceWithoutIt) {
    request->skip();
    EXPECT_EQ(granted, 1);
    EXPECT_FALSE(accessibility.isAccessibilityGranted());
}

TEST_F(PermissionRequestTest, mayGoBeforeTheGrantComes) {
    request->openSystemSettings();
    request.reset();
    desktop.windows.trusted = true;
    EXPECT_TRUE(QTest::qWaitFor([this] { return accessibility.isAccessibilityGranted(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(granted, 0);
}

}  // namespace
}  // namespace pimloft
