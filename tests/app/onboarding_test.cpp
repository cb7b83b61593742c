// SPDX-License-Identifier: MIT
#include "app/onboarding.h"

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "platform/fake_desktop.h"
#include "windowsnap/window_snap_module.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class OnboardingTest : public testing::Test {
protected:
    OnboardingTest() { desktop.displays.add(DisplayId{1}, {0, 0, 1920, 1080}); }

    void goToPermission() {
        flow.next();
        flow.next();
        ASSERT_EQ(flow.currentStep(), Onboarding::Permission);
    }
    void grant() {
        desktop.windows.trusted = true;
        ASSERT_TRUE(QTest::qWaitFor([this] { return accessibility().isAccessibilityGranted(); }));
        QCoreApplication::processEvents();
    }
    /// The buttons that the step shows.
    std::string buttons() const {
        QStringList shown;
        if (flow.showsBack())
            shown << QStringLiteral("Back");
        if (flow.showsNext())
            shown << QStringLiteral("Next");
        if (flow.showsGetStarted())
            shown << QStringLiteral("Get Started");
        return shown.join(QLatin1Char(' ')).toStdString();
    }
    bool isStored() const {
        return desktop.preferences.stored.contains(QStringLiteral("pimloft.general.hasCompletedOnboarding"));
    }
    AccessibilityManager &accessibility() { return AccessibilityManager::shared(); }
    /// As a desktop that does not trust the program, yet.
    FakeDesktop &untrusting() {
        desktop.windows.trusted = false;
        return desktop;
    }

    FakeDesktop desktop;
    SystemClock clock;
    QTemporaryDir folder;
    Process process{untrusting().platform(), clock, Dirs{{}, folder.path(), {}, {}, {}, {}}};
    int completions = 0;
    Onboarding flow{AppState::shared(), SettingsManager::shared(), AccessibilityManager::shared(),
                    desktop.workspace, [this] { ++completions; }};
};

TEST_F(OnboardingTest, startsAtTheWelcomeWithoutAWayBack) {
    EXPECT_EQ(flow.currentStep(), 0);
    EXPECT_EQ(buttons(), "Next");
}

TEST_F(OnboardingTest, eachStepShowsItsButtons) {
    flow.next();
    EXPECT_EQ(flow.currentStep(), 1);
    EXPECT_EQ(buttons(), "Back Next");
    flow.next();
    EXPECT_EQ(flow.currentStep(), 2);
    EXPECT_EQ(buttons(), "Back");
    flow.permission()->skip();
    EXPECT_EQ(flow.currentStep(), 3);
    EXPECT_EQ(buttons(), "Get Started");
}

TEST_F(OnboardingTest, aButtonThatTheStepDoesNotShowDoesNothing) {
    flow.back();
    flow.getStarted();
    EXPECT_EQ(flow.currentStep(), 0);
    goToPermission();
    flow.next();
    flow.getStarted();
    EXPECT_EQ(flow.currentStep(), 2);
    flow.permission()->skip();
    flow.back();
    flow.next();
    EXPECT_EQ(flow.currentStep(), 3);
    EXPECT_EQ(completions, 0);
    EXPECT_FALSE(isStored());
}

TEST_F(OnboardingTest, backGoesBackStepByStep) {
    goToPermission();
    flow.back();
    EXPECT_EQ(flow.currentStep(), 1);
    flow.back();
    EXPECT_EQ(flow.currentStep(), 0);
}

TEST_F(OnboardingTest, getStartedStoresThatAndThenTellsIt) {
    goToPermission();
    flow.permission()->skip();
    EXPECT_FALSE(isStored());
    desktop.log();
    flow.getStarted();
    EXPECT_EQ(desktop.log(), "set pimloft.general.hasCompletedOnboarding = true\n");
    EXPECT_EQ(completions, 1);
}

TEST_F(OnboardingTest, withThePermissionTheStepIsLeftByItselfAfterHalfASecond) {
    desktop.windows.trusted = true;
    goToPermission();
    EXPECT_TRUE(accessibility().isAccessibilityGranted()) << "it is not read when the page is shown";
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return flow.currentStep() == Onboarding::Ready; }));
    EXPECT_GE(elapsed.elapsed(), 450);
}

TEST_F(OnboardingTest, goingBackBeforeThatIsNotUndoneByIt) {
    desktop.windows.trusted = true;
    goToPermission();
    flow.back();
    flow.next();
    EXPECT_TRUE(QTest::qWaitFor([this] { return flow.currentStep() == Onboarding::Ready; }));
    QTest::qWait(550);  // the second visit's half second is over as well
    EXPECT_EQ(flow.currentStep(), Onboarding::Ready);
}

TEST_F(OnboardingTest, withoutThePermissionTheStepStays) {
    goToPermission();
    QTest::qWait(550);
    EXPECT_EQ(flow.currentStep(), Onboarding::Permission);
}

TEST_F(OnboardingTest, theGrantMovesOnWhileTheSettingsAreOpen) {
    goToPermission();
    flow.permission()->openSystemSettings();
    grant();
    EXPECT_EQ(flow.currentStep(), Onboarding::Ready);
}

TEST_F(OnboardingTest, aGrantThatComesAfterItWasSkippedChangesNothing) {
    goToPermission();
    flow.permission()->openSystemSettings();
    flow.permission()->skip();
    grant();
    EXPECT_EQ(flow.currentStep(), Onboarding::Ready);
}

TEST_F(OnboardingTest, aGrantThatComesWhileTheUserIsBackAtTheModulesLeavesThemThere) {
    goToPermission();
    flow.permission()->openSystemSettings();
    flow.back();
    grant();
    EXPECT_EQ(flow.currentStep(), Onboarding::Modules);
}

TEST_F(OnboardingTest, theReturnKeyDoesWhatTheStepIsAbout) {
    flow.proceed();
    flow.proceed();
    EXPECT_EQ(flow.currentStep(), Onboarding::Permission);
    desktop.log();
    flow.proceed();
    EXPECT_EQ(desktop.log(),
              "open x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility\n");
    flow.permission()->skip();
    flow.proceed();
    EXPECT_EQ(completions, 1);
}

TEST_F(OnboardingTest, theReturnKeyOpensNoSettingsOnceThePermissionIsThere) {
    desktop.windows.trusted = true;
    goToPermission();
    desktop.log();
    flow.proceed();
    EXPECT_EQ(desktop.log(), "");
    EXPECT_EQ(flow.currentStep(), Onboarding::Permission) << "the step is left by itself";
}

TEST_F(OnboardingTest, listsTheModulesInTheirOrderWithWhatIsSaidOfThemHere) {
    QStringList lines;
    for (const QVariant &row : flow.modules()) {
        const auto each = row.value<OnboardingModule>();
        lines << each.module->id() + QStringLiteral(": ") + each.description;
    }
    EXPECT_EQ(lines.join(QLatin1Char('\n')).toStdString(),
              "windowsnap: Windows 11-style window snapping with visual layout picker\n"
              "clipboardplus: Clipboard history with Cmd+Shift+V popup\n"
              "finderfix: Cmd+X cut-paste for files, New File in Finder\n"
              "keymapper: One-click Ctrl↔Cmd swap, Windows key behavior\n"
              "quickvolume: Per-app volume mixer in your menu bar");
}

TEST_F(OnboardingTest, aModuleThatIsSwitchedOffIsNotStartedAtTheEnd) {
    desktop.windows.trusted = true;
    accessibility().refresh();
    AppState::shared().windowSnap()->setEnabled(false);
    AppState::shared().activateEnabledModules();
    EXPECT_FALSE(desktop.mouse.isWatched());
}

}  // namespace
}  // namespace pimloft
