// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "app/onboarding.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "app/whats_new.h"
#include "clipboard/clipboard_module.h"
#include "platform/fake_desktop.h"

#include <QWindow>

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// Windows that exist only as lines.
class FakeViewHost final : public ViewHost {
public:
    class Window final : public ViewWindow {
    public:
        Window(FakeViewHost &host, QString title) : host_(host), title_(std::move(title)) {}
        void present() override { host_.lines << QStringLiteral("present ") + title_; }
        void close() override { host_.lines << QStringLiteral("close ") + title_; }

    private:
        FakeViewHost &host_;
        QString title_;
    };

    bool offers(const Page &page) const override { return views.contains(page.source.fileName()); }
    std::unique_ptr<ViewWindow> makeWindow(const WindowDescription &window) override {
        lines << QStringLiteral("make %1 %2x%3%4")
                     .arg(window.title)
                     .arg(window.contentSize.width())
                     .arg(window.contentSize.height())
                     .arg(window.isFloating ? QStringLiteral(" floating") : QString());
        return std::make_unique<Window>(*this, window.title);
    }
    std::unique_ptr<QWindow> makePanelContent(const Page &) override { return nullptr; }
    std::string log() { return std::exchange(lines, {}).join(QLatin1Char('\n')).toStdString(); }

    QStringList views{QStringLiteral("OnboardingView.qml"), QStringLiteral("WhatsNewView.qml")};
    QStringList lines;
};

class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() { desktop.displays.add(DisplayId{1}, {0, 0, 1920, 1080}); }

    void store(const QString &key, const QVariant &value) { desktop.preferences.stored[key] = value; }
    void hasOnboarded() { store(QStringLiteral("pimloft.general.hasCompletedOnboarding"), true); }
    bool modulesRun() const { return desktop.mouse.isWatched(); }

    FakeDesktop desktop;
    SystemClock clock;
    QTemporaryDir folder;
    Process process{desktop.platform(), clock, Dirs{{}, folder.path(), {}, {}, {}, {}}};
    FakeViewHost views;
    AppDelegate delegate{{.settings = SettingsManager::shared(),
                          .accessibility = AccessibilityManager::shared(),
                          .workspace = desktop.workspace,
                          .views = views},
                         &AppState::shared};
};

TEST_F(AppDelegateTest, theFirstLaunchOpensOnlyTheFirstRunWindow) {
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(views.log(), "make Welcome to Pimloft 560x480 floating\npresent Welcome to Pimloft");
    EXPECT_FALSE(modulesRun());
    EXPECT_TRUE(delegate.onboardingWindow());
}

TEST_F(AppDelegateTest, completingTheFirstRunStartsTheModulesAndTellsNoNews) {
    delegate.applicationDidFinishLaunching();
    views.log();
    Onboarding &flow = *delegate.onboarding();
    flow.next();
    flow.next();
    flow.permission()->skip();
    flow.getStarted();
    EXPECT_TRUE(desktop.preferences.flag(QStringLiteral("pimloft.general.hasCompletedOnboarding")));
    EXPECT_EQ(views.log(), "close Welcome to Pimloft");
    EXPECT_TRUE(modulesRun());
    EXPECT_FALSE(delegate.onboardingWindow());
    for (const PimloftModule *module : AppState::shared().allModules())
        EXPECT_TRUE(module->isEnabled()) << qPrintable(module->id());
}

TEST_F(AppDelegateTest, aSecondClickOnTheButtonThatEndsTheFirstRunClosesNothingMore) {
    delegate.applicationDidFinishLaunching();
    Onboarding &flow = *delegate.onboarding();
    flow.next();
    flow.next();
    flow.permission()->skip();
    flow.getStarted();
    views.log();
    flow.getStarted();
    EXPECT_EQ(views.log(), "");
    EXPECT_TRUE(modulesRun());
}

TEST_F(AppDelegateTest, aSecondClickOnTheButtonOfTheNewsClosesNothingMore) {
    hasOnboarded();
    delegate.applicationDidFinishLaunching();
    delegate.whatsNew()->dismiss();
    views.log();
    delegate.whatsNew()->dismiss();
    EXPECT_EQ(views.log(), "");
}

TEST_F(AppDelegateTest, theSecondLaunchTellsTheNewsOfTheSameVersion) {
    hasOnboarded();
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(views.log(), "make What's New 420x400\npresent What's New");
    EXPECT_TRUE(modulesRun());
    EXPECT_TRUE(delegate.whatsNewWindow());
    delegate.whatsNew()->dismiss();
    EXPECT_EQ(desktop.preferences.text(QStringLiteral("pimloft.general.lastSeenVersion")),
              QStringLiteral("1.0.0"));
    EXPECT_EQ(views.log(), "close What's New");
    EXPECT_FALSE(delegate.whatsNewWindow());
}

TEST_F(AppDelegateTest, dismissedNewsAreNotToldAgainUntilTheVersionChanges) {
    hasOnboarded();
    store(QStringLiteral("pimloft.general.lastSeenVersion"), QStringLiteral("1.0.0"));
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(views.log(), "");

    store(QStringLiteral("pimloft.general.lastSeenVersion"), QStringLiteral("0.9"));
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(views.log(), "make What's New 420x400\npresent What's New");
}

TEST_F(AppDelegateTest, viewsThatThisBuildLacksCountAsGoneThroughAndNothingIsStored) {
    views.views.clear();
    desktop.log();
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(views.log(), "");
    EXPECT_TRUE(modulesRun());
    EXPECT_TRUE(desktop.preferences.stored.isEmpty());
}

TEST_F(AppDelegateTest, quitStopsTheModules) {
    hasOnboarded();
    delegate.applicationDidFinishLaunching();
    AppState::shared().clipboardPlus()->setEnabled(false);
    delegate.applicationWillTerminate();
    EXPECT_FALSE(modulesRun());
}

}  // namespace
}  // namespace pimloft
