// SPDX-License-Identifier: MIT
// Servers that lack something: each test starts its own.
#include "platform/displays/x11_displays.h"
#include "platform/windows/x11_windows.h"
#include "support/desktop_session.h"

#include <gtest/gtest.h>

namespace pimloft::test {
namespace {

/// A server without an extension, as this process's $DISPLAY.
struct PoorSession {
    explicit PoorSession(const QString &missing)
        : desktop({.windowManager = {}, .serverArguments = {QStringLiteral("-extension"), missing}}) {}

    DesktopSession desktop;
    X11Session session;
    X11Displays displays{session, 1.0};
};

TEST(PoorServer, withoutRandrTheRootIsTheOneDisplay) {
    PoorSession poor(QStringLiteral("RANDR"));
    ASSERT_EQ(poor.displays.displays().size(), 1u);
    EXPECT_EQ(poor.displays.displays().front().frame, QRectF(0, 0, 1600, 1000));
    EXPECT_TRUE(poor.session.isConnected());
}

TEST(PoorServer, withoutXTestItIsNotTrusted) {
    PoorSession poor(QStringLiteral("XTEST"));
    EXPECT_EQ(findObstacle(poor.session, QStringLiteral("x11")), X11Obstacle::noXTest);
    X11Windows windows(poor.session, poor.displays, QStringLiteral("x11"));
    EXPECT_FALSE(windows.isTrusted());
    EXPECT_FALSE(windows.focusedWindow());
    EXPECT_TRUE(poor.session.isConnected());
}

TEST(PoorServer, withoutAWindowManagerThereIsNoFocusedWindow) {
    X11Session session;
    X11Displays displays(session, 1.0);
    X11Windows windows(session, displays, QStringLiteral("x11"));
    EXPECT_TRUE(windows.isTrusted());
    EXPECT_FALSE(windows.focusedWindow());
    EXPECT_EQ(displays.mainDisplay(), displays.displays().front());
}

TEST(PoorServer, withoutAServerNothingIsThere) {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":none");
    X11Session session;
    qputenv("DISPLAY", display);
    X11Displays displays(session, 1.0);
    X11Windows windows(session, displays, QStringLiteral("x11"));
    EXPECT_TRUE(displays.displays().empty());
    EXPECT_FALSE(displays.mainDisplay());
    EXPECT_FALSE(windows.isTrusted());
    EXPECT_EQ(findObstacle(session, QStringLiteral("x11")), X11Obstacle::noServer);
}

}  // namespace
}  // namespace pimloft::test
