// SPDX-License-Identifier: MIT
#include "platform/windows/mac_windows.h"

#include "fake_ax.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

class MacWindowsTest : public MacTest {
protected:
    WindowReference focused() {
        const auto window = windows_.focusedWindow();
        EXPECT_TRUE(window);
        log();
        return window.value_or(nullptr);
    }

    MacWindows windows_;
};

TEST_F(MacWindowsTest, isTrustedWhenTheSystemSaysSo) {
    EXPECT_TRUE(windows_.isTrusted());
    mac::focusedWindow().isTrusted = false;
    EXPECT_FALSE(windows_.isTrusted());
}

TEST_F(MacWindowsTest, waitsForAnotherProgramAMomentOnly) {
    EXPECT_FLOAT_EQ(mac::focusedWindow().patience, 0.5F);
}

TEST_F(MacWindowsTest, findsTheFocusedWindowOfTheFocusedApplication) {
    EXPECT_TRUE(windows_.focusedWindow());
    EXPECT_EQ(log(), "read AXFocusedApplication\nread AXFocusedWindow\n");
}

TEST_F(MacWindowsTest, findsNothingWithoutAFocusedApplication) {
    mac::focusedWindow().hasApplication = false;
    EXPECT_FALSE(windows_.focusedWindow());
    EXPECT_EQ(log(), "read AXFocusedApplication\n");
}

TEST_F(MacWindowsTest, findsNothingWithoutAFocusedWindow) {
    mac::focusedWindow().hasWindow = false;
    EXPECT_FALSE(windows_.focusedWindow());
}

TEST_F(MacWindowsTest, findsNothingWithoutPermission) {
    mac::focusedWindow().isTrusted = false;
    EXPECT_FALSE(windows_.focusedWindow());
}

TEST_F(MacWindowsTest, readsPositionAndSize) {
    const auto window = focused();
    EXPECT_EQ(windows_.position(window), QPointF(100, 200));
    EXPECT_EQ(windows_.size(window), QSizeF(640, 480));
    EXPECT_EQ(log(), "read AXPosition\nread AXSize\n");
}

TEST_F(MacWindowsTest, readsNothingOfAWindowThatIsGone) {
    const auto window = focused();
    mac::focusedWindow().isGone = true;
    EXPECT_FALSE(windows_.position(window));
    EXPECT_FALSE(windows_.size(window));
    EXPECT_FALSE(windows_.processId(window));
}

TEST_F(MacWindowsTest, readsNothingFromValuesOfAnotherKind) {
    const auto window = focused();
    mac::focusedWindow().hasOddValues = true;
    EXPECT_FALSE(windows_.position(window));
    EXPECT_FALSE(windows_.size(window));
}

TEST_F(MacWindowsTest, knowsTheProcess) {
    EXPECT_EQ(windows_.processId(focused()), ProcessId(4711));
}

TEST_F(MacWindowsTest, setsThePositionTheSizeAndThePositionAgain) {
    windows_.place(focused(), QRectF(0, 25, 960, 540.5));
    EXPECT_EQ(log(), "set AXPosition (0, 25)\n"
                     "set AXSize (960, 540.5)\n"
                     "set AXPosition (0, 25)\n");
}

TEST_F(MacWindowsTest, setsAllThreeWhateverBecomesOfThem) {
    const auto window = focused();
    mac::focusedWindow().isTrusted = false;
    windows_.place(window, QRectF(1, 2, 3, 4));
    EXPECT_EQ(log(), "set AXPosition (1, 2)\n"
                     "set AXSize (3, 4)\n"
                     "set AXPosition (1, 2)\n");
}

TEST_F(MacWindowsTest, skipsValuesThatCannotBeMade) {
    const auto window = focused();
    mac::focusedWindow().refusesValues = true;
    windows_.place(window, QRectF(1, 2, 3, 4));
    EXPECT_EQ(log(), "");
}

TEST_F(MacWindowsTest, takesNoForeignReference) {
    struct Other final : WindowElement {};
    const WindowReference other = std::make_shared<Other>();
    EXPECT_FALSE(windows_.position(other));
    EXPECT_FALSE(windows_.processId(nullptr));
    windows_.place(other, QRectF(1, 2, 3, 4));
    EXPECT_EQ(log(), "");
}

}  // namespace

}  // namespace pimloft::test
