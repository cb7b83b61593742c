// SPDX-License-Identifier: MIT
#include "app/panel_fade.h"

#include "platform/fake_desktop.h"
#include "support/animation_clock.h"

#include <QSignalSpy>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>

namespace pimloft {
namespace {

TEST(TimingFunctions, areMirrorImages) {
    for (double t = 0; t <= 1; t += 0.125)
        EXPECT_NEAR(easeOut().valueForProgress(t), 1 - easeIn().valueForProgress(1 - t), 1e-3) << t;
    EXPECT_NEAR(easeOut().valueForProgress(0.5), 0.6847, 1e-3);
    EXPECT_NEAR(easeIn().valueForProgress(0.5), 0.3153, 1e-3);
}

TEST(Transition, goesFromExactlyNoneToExactlyAllOfTheWay) {
    test::AnimationClock clock;
    Transition transition;
    std::vector<double> steps;
    transition.run(std::chrono::milliseconds(4), easeOut(),
                   [&](double progress) { steps.push_back(progress); });
    EXPECT_EQ(steps, std::vector{0.0}) << "the first step is made at once";
    clock.pass(10);
    EXPECT_EQ(steps.size(), 5u);
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    EXPECT_EQ(steps.back(), 1.0);
}

TEST(Transition, finishesOnceAndNotWhenItIsReplaced) {
    test::AnimationClock clock;
    Transition transition;
    QSignalSpy finished(&transition, &QAbstractAnimation::finished);
    double first = 0;
    double second = 0;
    transition.run(std::chrono::milliseconds(100), easeOut(), [&](double progress) { first = progress; });
    clock.pass(50);
    transition.run(std::chrono::milliseconds(100), easeOut(), [&](double progress) { second = progress; });
    clock.pass(99);
    EXPECT_EQ(finished.count(), 0);
    clock.pass(1);
    EXPECT_EQ(finished.count(), 1);
    EXPECT_LT(first, 1);
    EXPECT_EQ(second, 1);
}

struct Fade : testing::Test {
    Fade() { EXPECT_TRUE(panel->show({0, 0, 100, 100})); }
    const FakePanels::Window &window() { return *desktop.panels.existing().at(0); }

    FakeDesktop desktop;
    test::AnimationClock clock;
    std::unique_ptr<Panel> panel = desktop.panels.create(PanelKind::overlay, std::make_unique<QWindow>());
    PanelFade fade{desktop.panels};
};

TEST_F(Fade, takes150MillisecondsInAnd100Out) {
    fade.in(*panel);
    EXPECT_EQ(window().opacity(), 0);
    clock.pass(149);
    EXPECT_LT(window().opacity(), 1);
    clock.pass(1);
    EXPECT_EQ(window().opacity(), 1);
    bool done = false;
    fade.out(*panel, [&] { done = true; });
    EXPECT_TRUE(fade.isFadingOut());
    clock.pass(99);
    EXPECT_FALSE(done);
    clock.pass(1);
    EXPECT_TRUE(done);
    EXPECT_FALSE(fade.isFadingOut());
    EXPECT_EQ(window().opacity(), 0);
}

TEST_F(Fade, aFadeInDuringAFadeOutCancelsItsCompletion) {
    fade.out(*panel, [] { ADD_FAILURE() << "the panel is needed again"; });
    clock.pass(50);
    fade.in(*panel);
    EXPECT_FALSE(fade.isFadingOut());
    clock.pass(200);
    EXPECT_EQ(window().opacity(), 1);
}

TEST_F(Fade, theCompletionMayDestroyThePanelAndStartOver) {
    fade.out(*panel, [&] {
        panel = desktop.panels.create(PanelKind::overlay, std::make_unique<QWindow>());
        EXPECT_TRUE(panel->show({0, 0, 50, 50}));
        fade.in(*panel);
    });
    clock.pass(100);
    EXPECT_EQ(window().opacity(), 0);
    clock.pass(150);
    EXPECT_EQ(window().opacity(), 1);
}

TEST_F(Fade, isOneStepWhereNothingIsToMove) {
    desktop.panels.motionIsReduced = true;
    fade.in(*panel);
    EXPECT_EQ(window().opacity(), 1);
    bool done = false;
    fade.out(*panel, [&] { done = true; });
    EXPECT_EQ(window().opacity(), 0);
    EXPECT_FALSE(done) << "the states and times stay";
    clock.pass(100);
    EXPECT_TRUE(done);
}

}  // namespace
}  // namespace pimloft
