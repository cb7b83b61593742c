// SPDX-License-Identifier: MIT
#include "windowsnap/snap_overlay_controller.h"

#include "platform/fake_desktop.h"
#include "support/animation_clock.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const Display screen{DisplayId(1), {0, 0, 1600, 1000}, {0, 0, 1600, 1000}};
const QRectF leftHalf(0, 0, 800, 1000);
const QRectF rightHalf(800, 0, 800, 1000);

struct SnapOverlay : testing::Test {
    const FakePanels::Window &window() { return *desktop.panels.existing().at(0); }

    FakeDesktop desktop;
    test::AnimationClock clock;
    SnapOverlayController overlay{desktop.panels};
};

TEST_F(SnapOverlay, showsNothingAtFirst) {
    EXPECT_FALSE(overlay.overlayWindow());
    EXPECT_EQ(overlay.currentFrame(), QRectF());
}

TEST_F(SnapOverlay, isAnOverlayThatFadesInWhereTheWindowWillLand) {
    overlay.show(leftHalf, screen);
    EXPECT_EQ(desktop.log(), "show overlay at (0, 0) 800 x 1000\n");
    EXPECT_EQ(window().kind(), PanelKind::overlay) << "clicks must reach the window below";
    EXPECT_EQ(window().opacity(), 0);
    EXPECT_EQ(overlay.currentFrame(), leftHalf);
    clock.pass(149);
    EXPECT_LT(window().opacity(), 1);
    clock.pass(1);
    EXPECT_EQ(window().opacity(), 1);
    EXPECT_EQ(window().frame(), leftHalf);
}

TEST_F(SnapOverlay, fadesInFastAtFirst) {
    overlay.show(leftHalf, screen);
    clock.pass(75);
    EXPECT_NEAR(window().opacity(), 0.685, 0.01);
}

TEST_F(SnapOverlay, twoShowsMakeOneWindowThatGlides) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    overlay.show(rightHalf, screen);
    EXPECT_EQ(overlay.currentFrame(), rightHalf);
    EXPECT_EQ(window().frame(), leftHalf);
    clock.pass(75);
    EXPECT_NEAR(window().frame().x(), 0.685 * 800, 8) << "fast at first";
    EXPECT_EQ(window().opacity(), 1) << "a glide leaves the opacity alone";
    clock.pass(74);
    EXPECT_NE(window().frame(), rightHalf);
    clock.pass(1);
    EXPECT_EQ(window().frame(), rightHalf);
    EXPECT_EQ(desktop.panels.existing().size(), 1u);
}

TEST_F(SnapOverlay, glidesAndGoesOnFadingInWhenShownAgainAtOnce) {
    overlay.show(leftHalf, screen);
    clock.pass(50);
    overlay.show(rightHalf, screen);
    clock.pass(100);
    EXPECT_EQ(window().opacity(), 1);
    EXPECT_NE(window().frame(), rightHalf);
    clock.pass(50);
    EXPECT_EQ(window().frame(), rightHalf);
}

TEST_F(SnapOverlay, turnsRoundInMidGlideFromWhereItIs) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    overlay.show(rightHalf, screen);
    clock.pass(75);
    const QRectF midway = window().frame();
    overlay.show(leftHalf, screen);
    EXPECT_EQ(window().frame(), midway);
    clock.pass(150);
    EXPECT_EQ(window().frame(), leftHalf);
}

TEST_F(SnapOverlay, staysWhereItIsWhenShownThereAgain) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    overlay.show(leftHalf, screen);
    clock.pass(75);
    EXPECT_EQ(window().frame(), leftHalf);
    EXPECT_EQ(window().opacity(), 1);
}

TEST_F(SnapOverlay, fadesOutSlowlyAtFirstAndIsThenOrderedOut) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    overlay.hide();
    clock.pass(50);
    EXPECT_NEAR(window().opacity(), 1 - 0.315, 0.01);
    clock.pass(49);
    EXPECT_EQ(desktop.log(), "show overlay at (0, 0) 800 x 1000\n");
    EXPECT_TRUE(overlay.overlayWindow());
    clock.pass(1);
    EXPECT_EQ(desktop.log(), "order out overlay\n");
    EXPECT_FALSE(overlay.overlayWindow());
    EXPECT_TRUE(desktop.panels.existing().empty());
    EXPECT_EQ(overlay.currentFrame(), leftHalf) << "the last frame shown";
}

TEST_F(SnapOverlay, fadesOutFromWhereTheFadeInGotTo) {
    overlay.show(leftHalf, screen);
    clock.pass(75);
    const double reached = window().opacity();
    overlay.hide();
    EXPECT_EQ(window().opacity(), reached);
    clock.pass(50);
    EXPECT_LT(window().opacity(), reached);
    clock.pass(50);
    EXPECT_FALSE(overlay.overlayWindow());
}

TEST_F(SnapOverlay, hidingWithoutAShowDoesNothing) {
    overlay.hide();
    clock.pass(200);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(SnapOverlay, hidingTwiceDoesNotDelayTheEnd) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    overlay.hide();
    clock.pass(60);
    overlay.hide();
    clock.pass(40);
    EXPECT_EQ(desktop.log(), "show overlay at (0, 0) 800 x 1000\norder out overlay\n");
}

TEST_F(SnapOverlay, aShowDuringTheFadeOutMovesTheDyingWindowWhichStillGoes) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    desktop.log();
    overlay.hide();
    clock.pass(50);
    const double fading = window().opacity();
    overlay.show(rightHalf, screen);
    clock.pass(25);
    EXPECT_GT(window().frame().x(), 0);
    EXPECT_LT(window().opacity(), fading);
    EXPECT_EQ(overlay.currentFrame(), rightHalf);
    clock.pass(25);
    EXPECT_EQ(desktop.log(), "order out overlay\n");
    EXPECT_FALSE(overlay.overlayWindow());
    clock.pass(200);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(SnapOverlay, theNextShowAfterADyingWindowMakesANewOne) {
    overlay.show(leftHalf, screen);
    clock.pass(150);
    overlay.hide();
    overlay.show(rightHalf, screen);
    clock.pass(100);
    desktop.log();
    overlay.show(leftHalf, screen);
    EXPECT_EQ(desktop.log(), "show overlay at (0, 0) 800 x 1000\n");
    clock.pass(150);
    EXPECT_EQ(window().opacity(), 1);
    EXPECT_EQ(window().frame(), leftHalf) << "the old glide must not move the new window";
}

TEST_F(SnapOverlay, goesAtOnceWithItsController) {
    {
        SnapOverlayController shortLived(desktop.panels);
        shortLived.show(leftHalf, screen);
        clock.pass(50);
        shortLived.show(rightHalf, screen);
        shortLived.hide();
        clock.pass(10);
    }
    EXPECT_EQ(desktop.log(), "show overlay at (0, 0) 800 x 1000\norder out overlay\n");
    clock.pass(200);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(SnapOverlay, withoutBlendingAppearsAndDisappearsAtOnceButTakesItsTime) {
    desktop.panels.blending = false;
    overlay.show(leftHalf, screen);
    EXPECT_EQ(window().opacity(), 1);
    clock.pass(20);
    EXPECT_EQ(window().opacity(), 1);
    overlay.hide();
    EXPECT_EQ(window().opacity(), 0);
    clock.pass(99);
    EXPECT_TRUE(overlay.overlayWindow());
    EXPECT_EQ(window().opacity(), 0);
    clock.pass(1);
    EXPECT_FALSE(overlay.overlayWindow());
}

TEST_F(SnapOverlay, withoutBlendingStillGlides) {
    desktop.panels.blending = false;
    overlay.show(leftHalf, screen);
    overlay.show(rightHalf, screen);
    clock.pass(75);
    EXPECT_GT(window().frame().x(), 0);
    EXPECT_LT(window().frame().x(), 800);
    clock.pass(75);
    EXPECT_EQ(window().frame(), rightHalf);
}

TEST_F(SnapOverlay, becomesTranslucentWhenTheDesktopStartsToBlendMeanwhile) {
    desktop.panels.blending = false;
    overlay.show(leftHalf, screen);
    desktop.panels.blending = true;
    clock.pass(75);
    EXPECT_NEAR(window().opacity(), 0.685, 0.01);
    clock.pass(75);
    EXPECT_EQ(window().opacity(), 1);
}

TEST_F(SnapOverlay, jumpsWhereNothingIsToMove) {
    desktop.panels.motionIsReduced = true;
    overlay.show(leftHalf, screen);
    EXPECT_EQ(window().opacity(), 1);
    overlay.show(rightHalf, screen);
    EXPECT_EQ(window().frame(), rightHalf);
}

}  // namespace
}  // namespace pimloft
