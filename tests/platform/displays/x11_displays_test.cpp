// SPDX-License-Identifier: MIT
#include "platform/displays/x11_displays.h"

#include "platform/support/x11_client.h"
#include "support/desktop_session.h"

#include <gtest/gtest.h>

namespace pimloft::test {
namespace {

constexpr const char *dock = "_NET_WM_WINDOW_TYPE_DOCK";

class X11DisplaysTest : public testing::Test {
protected:
    X11DisplaysTest() {
        displays.onChanged = [this] { ++changes; };
    }

    static void xrandr(const QStringList &arguments) {
        currentSession().run(QStringLiteral("xrandr"), arguments);
    }
    /// LEFT is 600 wide, RIGHT 1000 and shorter.
    static void divide(const QString &primary = {}) {
        const auto name = [&](const char *each) {
            return (primary == QLatin1String(each) ? QStringLiteral("*") : QString()) + QLatin1String(each);
        };
        xrandr({QStringLiteral("--setmonitor"), name("LEFT"), QStringLiteral("600/150x1000/250+0+0"),
                QStringLiteral("screen")});
        xrandr({QStringLiteral("--setmonitor"), name("RIGHT"), QStringLiteral("1000/250x800/200+600+0"),
                QStringLiteral("none")});
    }

    /// "frame / visible frame; " of each display in order.
    std::string summary() {
        QString text;
        const auto rect = [](const QRectF &r) {
            return QStringLiteral("%1,%2 %3 x %4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
        };
        for (const Display &display : displays.displays())
            text += rect(display.frame) + QStringLiteral(" / ") + rect(display.visibleFrame) +
                    QStringLiteral("; ");
        return text.toStdString();
    }
    void expectSummary(const std::string &expected) {
        waitUntil([&] { return summary() == expected; });
        EXPECT_EQ(summary(), expected);
    }

    X11Session session;
    X11Displays displays{session, 1.0};
    X11Client client;
    int changes = 0;
};

TEST_F(X11DisplaysTest, oneScreenIsOneDisplay) {
    EXPECT_EQ(summary(), "0,0 1600 x 1000 / 0,0 1600 x 1000; ");
}

TEST_F(X11DisplaysTest, monitorsDividedByHandAreNoticed) {
    divide();
    expectSummary("0,0 600 x 1000 / 0,0 600 x 1000; 600,200 1000 x 800 / 600,200 1000 x 800; ");
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_FALSE(displays.displays()[0] == displays.displays()[1]);
}

TEST_F(X11DisplaysTest, thePrimaryIsFirstAndPointsCountFromIt) {
    divide(QStringLiteral("RIGHT"));
    expectSummary("0,0 1000 x 800 / 0,0 1000 x 800; -600,-200 600 x 1000 / -600,-200 600 x 1000; ");
    EXPECT_EQ(displays.pointSpace().primary, QRect(600, 0, 1000, 800));
}

TEST_F(X11DisplaysTest, aDisplayThatDisappearsIsGone) {
    divide();
    ASSERT_TRUE(waitUntil([&] { return displays.displays().size() == 2; }));
    const Display left = displays.displays()[0];
    ASSERT_TRUE(waitUntil([&] { return changes > 0; }));
    changes = 0;
    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("RIGHT")});
    expectSummary("0,0 600 x 1000 / 0,0 600 x 1000; ");
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_EQ(displays.displays()[0], left) << "the one that stays is the same one";
}

TEST_F(X11DisplaysTest, aPanelTakesItsStrutFromTheVisibleFrame) {
    const xcb_window_t panel = client.open(
        {.client = {0, 0, 1600, 40}, .type = dock, .strutPartial = {0, 0, 40, 0, 0, 0, 0, 0, 0, 1599, 0, 0}});
    expectSummary("0,0 1600 x 1000 / 0,0 1600 x 960; ");
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));

    changes = 0;
    client.setCardinals(panel, "_NET_WM_STRUT_PARTIAL", {0, 0, 0, 50, 0, 0, 0, 0, 0, 0, 0, 1599});
    expectSummary("0,0 1600 x 1000 / 0,50 1600 x 950; ");
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));

    client.deleteProperty(panel, "_NET_WM_STRUT_PARTIAL");
    expectSummary("0,0 1600 x 1000 / 0,0 1600 x 1000; ");

    client.setCardinals(panel, "_NET_WM_STRUT", {30, 0, 0, 0});
    expectSummary("0,0 1600 x 1000 / 30,0 1570 x 1000; ");

    client.close(panel);
    expectSummary("0,0 1600 x 1000 / 0,0 1600 x 1000; ");
}

TEST_F(X11DisplaysTest, aWindowThatIsNoDockMayBeginToReserveSpace) {
    const xcb_window_t window = client.open();
    ASSERT_TRUE(waitUntil([&] { return client.isManaged(window); }));
    client.setCardinals(window, "_NET_WM_STRUT", {0, 70, 0, 0});
    expectSummary("0,0 1600 x 1000 / 0,0 1530 x 1000; ");
    client.setCardinals(window, "_NET_WM_STRUT", {0, 90, 0, 0});
    expectSummary("0,0 1600 x 1000 / 0,0 1510 x 1000; ");
}

TEST_F(X11DisplaysTest, aPanelReservesSpaceOnItsOwnMonitorOnly) {
    divide();
    client.open({.client = {600, 0, 1000, 40},
                 .type = dock,
                 .strutPartial = {0, 0, 40, 0, 0, 0, 0, 0, 600, 1599, 0, 0}});
    expectSummary("0,0 600 x 1000 / 0,0 600 x 1000; 600,200 1000 x 800 / 600,200 1000 x 760; ");
}

TEST_F(X11DisplaysTest, ordinaryWindowsThatComeAndGoChangeNothing) {
    const xcb_window_t window = client.open();
    ASSERT_TRUE(waitUntil([&] { return client.isManaged(window); }));
    client.close(window);
    ASSERT_TRUE(waitUntil([&] { return !client.isManaged(window); }));
    waitUntil([&] { return changes > 0; }, 100);
    EXPECT_EQ(changes, 0);
}

TEST_F(X11DisplaysTest, severalChangesInARowAreToldOnce) {
    // The event loop does not turn between the two.
    divide();
    EXPECT_EQ(changes, 0);
    ASSERT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_EQ(displays.displays().size(), 2u);
    waitUntil([&] { return changes > 1; }, 50);
    EXPECT_EQ(changes, 1);
}

TEST_F(X11DisplaysTest, withTwoPixelsToThePointEverythingIsHalved) {
    X11Displays scaled(session, 2.0);
    client.open({.type = dock, .strutPartial = {0, 0, 40, 0, 0, 0, 0, 0, 0, 1599, 0, 0}});
    EXPECT_TRUE(waitUntil([&] {
        const Display &display = scaled.displays().front();
        return display.frame == QRectF(0, 0, 800, 500) && display.visibleFrame == QRectF(0, 0, 800, 480);
    }));
}

}  // namespace
}  // namespace pimloft::test
