// SPDX-License-Identifier: MIT
// The icon in the trays that desktops have, and the panel that belongs to it.
#include "desktop/support/desktop_test.h"
#include "desktop/support/notifier_host.h"
#include "desktop/support/tray_host.h"

namespace pimloft::test {
namespace {

class Tray : public DesktopTest {
protected:
    void SetUp() override {
        openDesktop(QStringLiteral("openbox"));
        // A mouse that is only plugged in for the first click may lose it.
        hands();
    }
    void closePanel() {
        letPimloftCatchUp();
        hands().tap(KEY_ESC);
        ASSERT_TRUE(waitUntil([this] { return !hasPanel(); }));
    }
    bool hasPanel() { return panelFrame().has_value(); }
};

TEST_F(Tray, getsItsIconWhenItComesLater) {
    startPimloft();
    TrayHost tray(session().display());
    ASSERT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    letPimloftCatchUp();
    // The icon may have asked for its place again meanwhile.
    ASSERT_TRUE(tray.hasIcon());
    hands().click(TrayHost::frame.center());
    EXPECT_TRUE(waitUntil([&] { return tray.hasIcon() && hasPanel(); }));
}

TEST_F(Tray, opensAndClosesThePanelAsFastAsAHandCan) {
    TrayHost tray(session().display());
    startPimloft();
    ASSERT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    letPimloftCatchUp();
    for (int time = 0; time < 10; ++time) {
        hands().click(TrayHost::frame.center());
        ASSERT_TRUE(waitUntil([&] { return hasPanel(); })) << "time " << time;
        closePanel();
    }
    for (int time = 0; time < 10; ++time)
        hands().click(TrayHost::frame.center());
    closePanel();
    hands().click(TrayHost::frame.center());
    EXPECT_TRUE(waitUntil([&] { return hasPanel(); })) << "it has lost count";
}

TEST_F(Tray, onTheBusGetsAnIconWithAName) {
    NotifierHost tray(session());
    startPimloft();
    ASSERT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    EXPECT_EQ(tray.property(QStringLiteral("Category")).toString(), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(tray.property(QStringLiteral("Status")).toString(), QStringLiteral("Active"));
    EXPECT_EQ(tray.property(QStringLiteral("Title")).toString().toLower(), QStringLiteral("pimloft"));
}

TEST_F(Tray, onTheBusOpensThePanelAtThePointer) {
    NotifierHost tray(session());
    startPimloft();
    ASSERT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    letPimloftCatchUp();
    const QPoint icon(1000, 12);
    hands().moveTo(icon);
    for (int time = 0; time < 3; ++time) {
        tray.click(icon);
        ASSERT_TRUE(waitUntil([&] { return hasPanel(); })) << "time " << time;
        const QRect panel = *panelFrame();
        EXPECT_NEAR(panel.center().x(), icon.x(), 2);
        EXPECT_NEAR(panel.top(), icon.y() + 6, 3);
        closePanel();
    }
    tray.click(icon);
    ASSERT_TRUE(waitUntil([&] { return hasPanel(); }));
    letPimloftCatchUp();
    hands().click({300, 700});
    EXPECT_TRUE(waitUntil([&] { return !hasPanel(); })) << "a click elsewhere does not close it";
}

TEST_F(Tray, onTheBusGetsItsIconBackWhenItRestarts) {
    auto tray = std::make_unique<NotifierHost>(session());
    startPimloft();
    ASSERT_TRUE(waitUntil([&] { return tray->hasIcon(); }));
    tray.reset();
    tray = std::make_unique<NotifierHost>(session());
    EXPECT_TRUE(waitUntil([&] { return tray->hasIcon(); }));
}

}  // namespace
}  // namespace pimloft::test
