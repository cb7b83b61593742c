// SPDX-License-Identifier: MIT
#include "page_session.h"

#include "app/onboarding.h"
#include "windowsnap/window_snap_module.h"

#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class FirstRunView : public testing::Test {
protected:
    void SetUp() override {
        window->present();
        view = test::shownWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view));
        session.desktop.log();
    }
    /// When nothing of the last step is seen any more.
    std::string spoken() {
        const auto stepsSeen = [this] {
            int seen = 0;
            for (const QQuickItem *step : view->contentItem()->findChildren<QQuickItem *>())
                if (QString::fromLatin1(step->metaObject()->className()).startsWith(u"OnboardingStep"))
                    seen += step->isVisible();
            return seen;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return stepsSeen() == 1; }));
        return test::spoken(view).join(QLatin1Char('\n')).toStdString();
    }
    void click(const char *name) {
        QQuickItem *item = test::named(view, QString::fromUtf8(name));
        ASSERT_TRUE(item) << name;
        test::click(item);
    }
    void type(Qt::Key key) { test::type(view, key); }
    /// A desktop that does not trust the program, yet.
    test::PageSession &untrusting() {
        session.desktop.windows.trusted = false;
        session.accessibility().refresh();
        return session;
    }

    test::PageSession session;
    int completions = 0;
    Onboarding flow{untrusting().appState(), session.settings(), session.accessibility(),
                    session.desktop.workspace, [this] { ++completions; }};
    std::unique_ptr<ViewWindow> window = session.views().makeWindow(
        {.title = QStringLiteral("Welcome"),
         .contentSize = {560, 480},
         .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/OnboardingView.qml")),
                  {{QStringLiteral("flow"), QVariant::fromValue(&flow)}}}});
    QQuickWindow *view = nullptr;
};

TEST_F(FirstRunView, theWelcomeSaysThis) {
    EXPECT_EQ(spoken(), "window: Welcome\n"
                        "heading: Welcome to Pimloft\n"
                        "text: Everything you miss from Windows, in one app.\n"
                        "text: Step 1 of 4\n"
                        "button: Next");
}

TEST_F(FirstRunView, theModulesSayThis) {
    click("Next");
    EXPECT_EQ(spoken(), "window: Welcome\n"
                        "heading: Choose Your Modules\n"
                        "text: All modules are enabled by default. Disable any you don't need.\n"
                        "switch: WindowSnap [on]\n"
                        "switch: ClipboardPlus [on]\n"
                        "switch: FinderFix [on]\n"
                        "switch: KeyMapper [on]\n"
                        "switch: QuickVolume [on]\n"
                        "button: Back\n"
                        "text: Step 2 of 4\n"
                        "button: Next");
    const QStringList texts = test::texts(view->contentItem());
    EXPECT_TRUE(texts.contains(QStringLiteral("One-click Ctrl↔Cmd swap, Windows key behavior")));
    EXPECT_TRUE(texts.contains(QStringLiteral("Cmd+X cut-paste for files, New File in Finder")));
}

TEST_F(FirstRunView, thePermissionSaysThis) {
    flow.next();
    flow.next();
    EXPECT_EQ(spoken(), "window: Welcome\n"
                        "heading: Accessibility Permission Required\n"
                        "text: Pimloft needs Accessibility access to manage windows, remap keys, and enhance "
                        "Finder. Your data stays completely private — nothing leaves your Mac.\n"
                        "list item: 1. Click the button below to open System Settings\n"
                        "list item: 2. Find Pimloft in the list\n"
                        "list item: 3. Toggle the switch ON\n"
                        "button: Open System Settings\n"
                        "button: Skip for Now\n"
                        "button: Back\n"
                        "text: Step 3 of 4");
}

TEST_F(FirstRunView, thePermissionTellsWhenItIsGranted) {
    flow.next();
    flow.next();
    session.desktop.windows.trusted = true;
    session.accessibility().refresh();
    const std::string said = spoken();
    EXPECT_NE(said.find("text: Permission Granted!"), std::string::npos) << said;
    EXPECT_EQ(said.find("button: Open System Settings"), std::string::npos) << said;
    EXPECT_EQ(said.find("button: Skip for Now"), std::string::npos) << said;
}

TEST_F(FirstRunView, theLastStepSaysThis) {
    flow.next();
    flow.next();
    flow.permission()->skip();
    EXPECT_EQ(spoken(), "window: Welcome\n"
                        "heading: You're All Set!\n"
                        "text: Pimloft lives in your menu bar.\nClick the icon to access all features.\n"
                        "text: Look for this icon in your menu bar\n"
                        "text: Step 4 of 4\n"
                        "button: Get Started");
}

TEST_F(FirstRunView, theButtonsLeadThroughIt) {
    click("Next");
    click("Back");
    EXPECT_EQ(flow.currentStep(), 0);
    click("Next");
    click("Next");
    click("Open System Settings");
    EXPECT_EQ(session.desktop.log(),
              "open x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility\n");
    click("Skip for Now");
    EXPECT_EQ(flow.currentStep(), 3);
    click("Get Started");
    EXPECT_EQ(completions, 1);
}

TEST_F(FirstRunView, theKeyboardLeadsThroughIt) {
    type(Qt::Key_Return);
    EXPECT_EQ(flow.currentStep(), 1);
    type(Qt::Key_Tab);
    type(Qt::Key_Space);
    EXPECT_FALSE(session.appState().windowSnap()->isEnabled());
    type(Qt::Key_Return);
    EXPECT_EQ(flow.currentStep(), 2) << "Return in a row goes on, too";
    type(Qt::Key_Tab);
    type(Qt::Key_Tab);
    type(Qt::Key_Space);
    EXPECT_EQ(flow.currentStep(), 3) << "the second stop is not what skips";
    type(Qt::Key_Return);
    EXPECT_EQ(completions, 1);
}

TEST_F(FirstRunView, aSwitchTakesEffectAtOnce) {
    click("Next");
    click("QuickVolume");
    EXPECT_EQ(session.desktop.log(), "set pimloft.quickvolume.enabled = false\n");
    EXPECT_NE(spoken().find("switch: QuickVolume [off]"), std::string::npos);
}

TEST_F(FirstRunView, escapeDoesNotEndIt) {
    type(Qt::Key_Escape);
    EXPECT_TRUE(view->isVisible());
}

TEST_F(FirstRunView, closingItStoresNothing) {
    click("Next");
    view->close();
    EXPECT_EQ(session.desktop.log(), "");
    EXPECT_EQ(completions, 0);
}

TEST_F(FirstRunView, nothingIsCutShort) {
    for (int step = 0; step < 4; ++step) {
        spoken();
        for (const QQuickItem *item : view->contentItem()->findChildren<QQuickItem *>())
            EXPECT_FALSE(item->isVisible() && item->property("truncated").toBool())
                << item->property("text").toString().toStdString();
        step < 2 ? flow.next() : flow.permission()->skip();
    }
}

}  // namespace
}  // namespace pimloft
