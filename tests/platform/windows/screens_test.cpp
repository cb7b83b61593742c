// SPDX-License-Identifier: MIT
#include "platform/windows/windows_desk.h"

namespace pimloft::test {
namespace {

/// Two monitors, which xfwm4 does not know when they are divided by hand; placing knows no monitors.
class Screens : public WindowsDesk {
protected:
    void divide(const QString &primary) {
        for (const auto &[name, geometry, output] :
             {std::tuple("LEFT", "600/150x1000/250+0+0", "screen"),
              std::tuple("RIGHT", "1000/250x1000/250+600+0", "none")}) {
            const QString mark = primary == QLatin1String(name) ? QStringLiteral("*") : QString();
            currentSession().run(QStringLiteral("xrandr"),
                                 {QStringLiteral("--setmonitor"), mark + QLatin1String(name),
                                  QLatin1String(geometry), QLatin1String(output)});
        }
        ASSERT_TRUE(waitUntil([&] { return displays.displays().size() == 2; }));
    }
};

TEST_F(Screens, leftOfThePrimaryPointsAreNegative) {
    divide(QStringLiteral("RIGHT"));
    const auto reference = openFocused();
    windows.place(reference, {-600, 0, 600, 500});
    expectFrame({0, 0, 600, 500});
    EXPECT_EQ(windows.position(reference), QPointF(-600, 0));
    windows.place(reference, {0, 500, 500, 500});
    expectFrame({600, 500, 500, 500});
    EXPECT_EQ(windows.position(reference), QPointF(0, 500));
}

TEST_F(Screens, theMainDisplayIsTheOneThatHoldsTheActiveWindowsCentre) {
    divide(QStringLiteral("LEFT"));
    const DisplayId left = displays.displays()[0].id;
    const DisplayId right = displays.displays()[1].id;
    EXPECT_EQ(displays.mainDisplay()->id, left) << "no active window";
    const auto reference = openFocused();
    windows.place(reference, {500, 100, 400, 300});
    expectFrame({500, 100, 400, 300});
    EXPECT_EQ(displays.mainDisplay()->id, right);
    windows.place(reference, {300, 100, 400, 300});
    expectFrame({300, 100, 400, 300});
    EXPECT_EQ(displays.mainDisplay()->id, left);
}

TEST_F(Screens, withTwoPixelsToThePointFramesAreReadAndPlacedInPoints) {
    X11Displays scaledDisplays(session, 2.0);
    X11Windows scaled(session, scaledDisplays, QStringLiteral("x11"));
    EXPECT_EQ(scaledDisplays.displays().front().frame, QRectF(0, 0, 800, 500));
    openFocused();
    const auto reference = scaled.focusedWindow();
    ASSERT_TRUE(reference);
    scaled.place(*reference, {0, 0, 400, 500});
    expectFrame({0, 0, 800, 1000});
    EXPECT_EQ(scaled.size(*reference), QSizeF(400, 500));
    scaled.place(*reference, {266.5, 0, 266.75, 500});
    expectFrame({533, 0, 534, 1000});
    EXPECT_EQ(scaled.position(*reference), QPointF(266.5, 0));
}

}  // namespace
}  // namespace pimloft::test
