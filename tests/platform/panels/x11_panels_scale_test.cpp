// SPDX-License-Identifier: MIT
// A desktop at twice the usual scale, with two monitors of which the right one is the primary.
#include "panel_desktop.h"

#include <QGuiApplication>

namespace pimloft {
namespace {

using namespace test;

/// Read by Qt when the application is made.
[[maybe_unused]] const bool scaled = qputenv("QT_SCALE_FACTOR", "2");

void splitScreen() {
    const auto monitor = [](const char *name, const char *geometry, const char *output) {
        currentSession().run(QStringLiteral("xrandr"), {QStringLiteral("--setmonitor"), QLatin1String(name),
                                                        QLatin1String(geometry), QLatin1String(output)});
    };
    monitor("LEFT", "700/200x1000/250+0+0", "none");
    monitor("*RIGHT", "900/250x1000/250+700+0", "screen");
}

struct TwoMonitors {
    TwoMonitors() { splitScreen(); }
};

/// The monitors stand before the services ask for them.
struct PanelsAtScaleTwo : TwoMonitors, PanelDesktop {};

TEST_F(PanelsAtScaleTwo, theTestDesktopIsAsItSays) {
    EXPECT_EQ(qGuiApp->devicePixelRatio(), 2);
    EXPECT_EQ(displays.pointSpace().primary, QRect(700, 0, 900, 1000));
}

TEST_F(PanelsAtScaleTwo, anOverlayStandsExactlyOnEitherMonitor) {
    auto overlay = make(PanelKind::overlay);
    for (const QRect native : {QRect(0, 0, 700, 1000), QRect(700, 0, 450, 1000), QRect(1150, 500, 450, 500),
                               QRect(651, 203, 101, 99), QRect(3, 5, 7, 9)}) {
        EXPECT_TRUE(overlay->show(desktop(native)));
        EXPECT_EQ(nativeFrame(*overlay), native);
        // Still so after Qt has heard of it.
        EXPECT_TRUE(waitUntil(
            [&] { return content->isExposed() && content->width() == qRound(native.width() / 2.0); }));
        session.roundTrip();
        EXPECT_EQ(nativeFrame(*overlay), native);
        overlay->orderOut();
    }
}

TEST_F(PanelsAtScaleTwo, anOverlayGlidesAcrossMonitorsToThePixel) {
    auto overlay = make(PanelKind::overlay);
    EXPECT_TRUE(overlay->show(desktop({0, 0, 350, 1000})));
    EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    for (int x = 1; x <= 1250; x += 96) {
        const QRect native(x, x / 5, 350 + x / 25, 700);
        overlay->setFrame(desktop(native));
        EXPECT_TRUE(waitUntil(
            [&] { return nativeFrame(*overlay) == native && content->width() == (native.width() + 1) / 2; }));
    }
    session.roundTrip();
    EXPECT_EQ(nativeFrame(*overlay).left(), 1249);
}

TEST_F(PanelsAtScaleTwo, anOverlaysPictureReachesItsLastPixel) {
    const auto picom = startCompositor();
    auto overlay = make(PanelKind::overlay);
    for (const QSize size : {QSize(401, 301), QSize(800, 555), QSize(333, 222)}) {
        EXPECT_TRUE(overlay->show(desktop({QPoint(33, 77), size})));
        EXPECT_TRUE(waitUntil([&] {
            return pixel(id(*overlay), {size.width() - 1, size.height() - 1}) == 0x80000080;
        })) << size.width();
        overlay->orderOut();
    }
}

TEST_F(PanelsAtScaleTwo, theOutlineIsMeasuredInPoints) {
    auto overlay = make(PanelKind::overlay);
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    EXPECT_EQ(shape(*overlay), QStringLiteral("400x8+0+0 8x284+0+8 8x284+392+8 400x8+0+292"));
}

TEST_F(PanelsAtScaleTwo, aPopupHasItsSizeInPointsAndKnowsAClickInsideFromOneOutside) {
    auto popup = make(PanelKind::popup);
    std::vector<Dismissal> dismissals;
    popup->onDismiss = [&](Dismissal why) { dismissals.push_back(why); };
    // The bottom-left corner of the primary display.
    EXPECT_TRUE(popup->show({8, 8, 340, 420}));
    EXPECT_EQ(nativeFrame(*popup), QRect(716, 144, 680, 840));
    EXPECT_TRUE(waitUntil([&] { return content->isExposed() && content->size() == QSize(340, 420); }));
    hands.click({1390, 980});
    EXPECT_TRUE(waitUntil([&] { return content->clicks == 1; }));
    settle();
    EXPECT_TRUE(dismissals.empty());
    hands.click({1400, 980});
    EXPECT_TRUE(waitUntil([&] { return dismissals == std::vector{Dismissal::outsideClick}; }));
    popup->orderOut();
}

}  // namespace
}  // namespace pimloft
