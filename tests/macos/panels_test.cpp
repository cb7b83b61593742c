// SPDX-License-Identifier: MIT
#include "platform/panels/mac_panels.h"

#include "fake_appkit.h"
#include "panel_session.h"
#include "platform/panels/mac_panel_window.h"

namespace pimloft::test {

namespace {

class MacPanelsTest : public PanelSession {};

TEST_F(MacPanelsTest, blends) {
    EXPECT_TRUE(panels_.blends());
}

TEST_F(MacPanelsTest, moveAtOnceWhereTheUserWantsThat) {
    EXPECT_FALSE(panels_.reducesMotion());
    mac::changeDisplayOptions(false, true);
    EXPECT_TRUE(panels_.reducesMotion());
}

TEST_F(MacPanelsTest, makesAnOverlayOfItsKindOnce) {
    const auto overlay = make(PanelKind::overlay);
    const mac::PanelState made = *mac::panel(1);
    EXPECT_EQ(made.style, 0) << "borderless";
    EXPECT_EQ(made.level, 3);
    EXPECT_EQ(made.behavior, 17U) << "on all spaces, in its place";
    EXPECT_EQ(made.backing, 2);
    EXPECT_EQ(made.animation, 2);
    EXPECT_FALSE(made.isDeferred);
    EXPECT_FALSE(made.isOpaque);
    EXPECT_TRUE(made.hasClearBackground);
    EXPECT_FALSE(made.hasShadow);
    EXPECT_TRUE(made.ignoresClicks);
    EXPECT_FALSE(made.hidesWithApplication);
    EXPECT_FALSE(made.isReleasedWhenClosed);
    EXPECT_EQ(made.subviews, 1);
}

TEST_F(MacPanelsTest, makesAPopupOfItsKindOnce) {
    const auto popup = make(PanelKind::popup);
    const mac::PanelState made = *mac::panel(1);
    EXPECT_EQ(made.style, 128) << "a panel that does not activate, and nothing else";
    EXPECT_EQ(made.level, 101);
    EXPECT_EQ(made.behavior, 9U) << "on all spaces, passing";
    EXPECT_EQ(made.backing, 2);
    EXPECT_FALSE(made.isDeferred);
    EXPECT_FALSE(made.isOpaque);
    EXPECT_TRUE(made.hasClearBackground);
    EXPECT_TRUE(made.hasShadow);
    EXPECT_FALSE(made.ignoresClicks);
    EXPECT_FALSE(made.movesByBackground);
    EXPECT_FALSE(made.hidesWithApplication);
    EXPECT_EQ(made.subviews, 1);
}

TEST_F(MacPanelsTest, putsAnOverlayInFrontOfWhatIsThereWithoutTheKeyboard) {
    const auto overlay = make(PanelKind::overlay);
    log();
    overlay->setOpacity(0);
    EXPECT_TRUE(overlay->show(QRectF(0, 540, 960, 540)));
    EXPECT_EQ(log(), "panel 1: alpha 0\n"
                     "panel 1: frame 0 540 960 540\n"
                     "panel 1: order front\n");
    overlay->orderOut();
    EXPECT_EQ(log(), "panel 1: order out\n");
    overlay->orderOut();
    overlay->releaseTyping();
    EXPECT_EQ(log(), "");
}

TEST_F(MacPanelsTest, movesAndFadesThroughTheSystem) {
    const auto overlay = make(PanelKind::overlay);
    ASSERT_TRUE(overlay->show(QRectF(0, 0, 100, 100)));
    log();
    overlay->setFrame(QRectF(10.5, 20, 300, 200));
    overlay->setOpacity(0.5);
    EXPECT_EQ(log(), "panel 1: frame 10.5 20 300 200\npanel 1: alpha 0.5\n");
    EXPECT_EQ(content_->size(), QSize(300, 200));
    EXPECT_EQ(content_->position(), QPoint(0, 0)) << "in the panel";
}

TEST_F(MacPanelsTest, showsAndHidesItsContentWithItself) {
    const auto overlay = make(PanelKind::overlay);
    ASSERT_TRUE(overlay->show(QRectF(0, 0, 100, 100)));
    EXPECT_TRUE(content_->isVisible());
    overlay->orderOut();
    EXPECT_FALSE(content_->isVisible());
}

TEST_F(MacPanelsTest, takesAPanelOffTheScreenThatIsDestroyed) {
    for (const PanelKind kind : {PanelKind::overlay, PanelKind::popup}) {
        auto panel = make(kind);
        ASSERT_TRUE(panel->show(QRectF(0, 0, 100, 100)));
        log();
        panel.reset();
        EXPECT_THAT(log(), testing::HasSubstr("order out\n"));
    }
}

TEST_F(MacPanelsTest, letGoOfTheirHandlers) {
    const auto probe = std::make_shared<int>();
    const std::uintptr_t view = mac::makeView();
    {
        const MacPanelWindow window(PanelKind::popup, view, [probe] {});
    }
    {
        const MacClickMonitor monitor([probe] {});
    }
    EXPECT_EQ(probe.use_count(), 1);
    mac::releaseView(view);
}

}  // namespace

}  // namespace pimloft::test
