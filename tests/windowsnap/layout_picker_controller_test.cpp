// SPDX-License-Identifier: MIT
#include "windowsnap/layout_picker_controller.h"

#include "platform/fake_desktop.h"
#include "support/animation_clock.h"

#include <QWindow>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct LayoutPicker : testing::Test {
    std::unique_ptr<Panel> openWindow() {
        auto window = desktop.panels.create(PanelKind::popup, std::make_unique<QWindow>());
        EXPECT_TRUE(window->show({100, 100, 300, 200}));
        desktop.log();
        return window;
    }

    FakeDesktop desktop;
    test::AnimationClock clock;
};

TEST_F(LayoutPicker, hasNoWindowAtFirstAndHidesNothing) {
    LayoutPickerController picker(desktop.panels);
    EXPECT_FALSE(picker.pickerWindow());
    picker.hide();
    clock.pass(200);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(LayoutPicker, fadesItsWindowOutAndDestroysIt) {
    LayoutPickerController picker(desktop.panels, openWindow());
    picker.hide();
    clock.pass(75);
    EXPECT_GT(desktop.panels.existing().at(0)->opacity(), 0);
    EXPECT_LT(desktop.panels.existing().at(0)->opacity(), 1);
    clock.pass(74);
    EXPECT_TRUE(picker.pickerWindow());
    clock.pass(1);
    EXPECT_FALSE(picker.pickerWindow());
    EXPECT_EQ(desktop.log(), "give the keyboard back\norder out popup\n");
}

TEST_F(LayoutPicker, hidingTwiceDoesNotDelayTheEnd) {
    LayoutPickerController picker(desktop.panels, openWindow());
    picker.hide();
    clock.pass(100);
    picker.hide();
    clock.pass(50);
    EXPECT_FALSE(picker.pickerWindow());
}

TEST_F(LayoutPicker, takesItsWindowWithIt) {
    {
        LayoutPickerController picker(desktop.panels, openWindow());
        picker.hide();
    }
    EXPECT_EQ(desktop.log(), "give the keyboard back\norder out popup\n");
    clock.pass(200);
}

}  // namespace
}  // namespace pimloft
