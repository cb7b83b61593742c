// SPDX-License-Identifier: MIT
// The tooltips of buttons that show a symbol only.
#include "every_page.h"

#include "clipboard/clipboard_module.h"
#include "ui/general_settings.h"
#include "ui/settings_window.h"

#include <QDeadlineTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class Hints : public testing::Test {
protected:
    Hints() {
        settings.open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(test::shownWindow()));
    }

    /// Goes to the page with the buttons, and gives one of them the keyboard as Tab does.
    void comeToAButton() {
        settings.select(1);
        QQuickItem *button = test::named(test::shownWindow(), QStringLiteral("Remove Bitwarden"));
        ASSERT_TRUE(button);
        button->forceActiveFocus(Qt::TabFocusReason);
    }
    void leavePage() { settings.select(0); }
    static bool isShown() {
        for (QQuickItem *layer : test::shownWindow()->contentItem()->childItems())
            if (layer->inherits("QQuickOverlay"))
                return test::texts(layer) == QStringList{QStringLiteral("Remove Bitwarden")};
        return false;
    }
    /// What has been taken away stays in memory meanwhile, as it does while a loop runs within the loop.
    static bool comesUp() {
        for (const QDeadlineTimer limit(10000); !isShown() && !limit.hasExpired();)
            test::settle(*test::shownWindow());
        return isShown();
    }

    test::PageSession session;
    GeneralSettings general{session.settings(), session.accessibility(), session.updates(),
                            session.desktop.workspace};
    SettingsWindow settings{session.views(), general.page(), {session.appState().clipboardPlus()}};
};

TEST_F(Hints, comeUpWhereTheKeyboardStaysAndGoWithIt) {
    comeToAButton();
    EXPECT_FALSE(isShown()) << "there was no wait";
    EXPECT_TRUE(comesUp());
    test::type(test::shownWindow(), Qt::Key_Tab);
    EXPECT_FALSE(isShown());
}

TEST_F(Hints, stayAwayWhenTheirPageHasBeenTakenAwayMeanwhile) {
    comeToAButton();
    leavePage();
    // By the time that this one is there the first one would have complained of having no window.
    comeToAButton();
    EXPECT_TRUE(comesUp());
}

TEST_F(Hints, goWithTheirPage) {
    comeToAButton();
    EXPECT_TRUE(comesUp());
    leavePage();
    EXPECT_TRUE(QTest::qWaitFor([] { return !isShown(); }));
}

}  // namespace
}  // namespace pimloft
