// SPDX-License-Identifier: MIT
#include "platform/panels/mac_floating_windows.h"

#include "fake_appkit.h"
#include "mac_test.h"

#include <QWindow>

namespace pimloft::test {

namespace {

class MacFloatingWindowsTest : public MacTest {
protected:
    ~MacFloatingWindowsTest() override { mac::releaseWindow(view_); }

    long levelOf(Qt::WindowFlags flags) {
        QWindow window;
        window.setFlags(flags);
        window.create();
        return mac::panel(1)->level;
    }

    const std::uintptr_t view_ = mac::makeWindow(mac::modalPanelLevel);
    MacFloatingWindows windows_{[this](QWindow &) { return view_; }};
};

TEST_F(MacFloatingWindowsTest, putAWindowThatStaysOnTopAmongTheFloatingOnes) {
    EXPECT_EQ(levelOf(Qt::Window | Qt::WindowStaysOnTopHint), 3);
}

TEST_F(MacFloatingWindowsTest, leaveOtherWindowsWhereTheyAre) {
    EXPECT_EQ(levelOf(Qt::Window), mac::modalPanelLevel);
}

TEST_F(MacFloatingWindowsTest, skipAViewWithoutAWindow) {
    const std::uintptr_t lonely = mac::makeView();
    const MacFloatingWindows windows([lonely](QWindow &) { return lonely; });
    EXPECT_EQ(levelOf(Qt::Window | Qt::WindowStaysOnTopHint), 3);
    mac::releaseView(lonely);
}

}  // namespace

}  // namespace pimloft::test
