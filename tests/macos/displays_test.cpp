// SPDX-License-Identifier: MIT
#include "platform/displays/mac_displays.h"

#include "fake_appkit.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

const mac::Screen laptop{1, {0, 0, 1440, 900}, {0, 70, 1440, 805}};
const mac::Screen monitor{7, {-1920, 100, 1920, 1080}, {-1920, 100, 1920, 1055}};

class MacDisplaysTest : public MacTest {
protected:
    MacDisplaysTest() {
        mac::desktop().screens = {laptop, monitor};
        mac::desktop().mainScreen = 7;
        displays_.onChanged = [this] { ++changes_; };
    }

    MacDisplays displays_;
    int changes_ = 0;
};

TEST_F(MacDisplaysTest, listsTheScreensInTheSystemsOrderWithTheirFrames) {
    const auto &all = displays_.displays();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].id, DisplayId(1));
    EXPECT_EQ(all[0].frame, QRectF(0, 0, 1440, 900));
    EXPECT_EQ(all[0].visibleFrame, QRectF(0, 70, 1440, 805));
    EXPECT_EQ(all[1].id, DisplayId(7));
    EXPECT_EQ(all[1].frame, QRectF(-1920, 100, 1920, 1080));
}

TEST_F(MacDisplaysTest, asksTheSystemOnceUntilSomethingChanges) {
    displays_.displays();
    displays_.displays();
    EXPECT_EQ(log(), "list screens\n");
    mac::changeScreens({laptop});
    EXPECT_EQ(displays_.displays().size(), 1U);
    EXPECT_EQ(log(), "list screens\n");
}

TEST_F(MacDisplaysTest, tellsOfAChangeLaterAndOnce) {
    mac::changeScreens({laptop});
    mac::changeScreens({laptop, monitor});
    EXPECT_EQ(changes_, 0);
    runQueue();
    EXPECT_EQ(changes_, 1);
}

TEST_F(MacDisplaysTest, knowsTheMainDisplay) {
    EXPECT_EQ(displays_.mainDisplay()->id, DisplayId(7));
    mac::desktop().mainScreen = 1;
    EXPECT_EQ(displays_.mainDisplay()->id, DisplayId(1));
}

TEST_F(MacDisplaysTest, takesThePrimaryAsTheMainOneWhereTheSystemNamesNone) {
    mac::desktop().mainScreen.reset();
    EXPECT_EQ(displays_.mainDisplay()->id, DisplayId(1));
}

TEST_F(MacDisplaysTest, hasNoneWhereNoneIsConnected) {
    mac::changeScreens({});
    EXPECT_TRUE(displays_.displays().empty());
    EXPECT_EQ(displays_.mainDisplay(), std::nullopt);
}

TEST_F(MacDisplaysTest, hearsNothingOnceItIsGone) {
    int changes = 0;
    {
        MacDisplays displays;
        displays.onChanged = [&] { ++changes; };
        mac::changeScreens({laptop});
    }
    mac::changeScreens({monitor});
    runQueue();
    EXPECT_EQ(changes, 0);
}

class MacNoticesTest : public MacTest {};

TEST_F(MacNoticesTest, letGoOfTheirHandlers) {
    const auto probe = std::make_shared<int>();
    for (const auto kind : {MacNotice::Kind::screensChanged, MacNotice::Kind::applicationActivated,
                            MacNotice::Kind::displayOptionsChanged, MacNotice::Kind::sessionLeft,
                            MacNotice::Kind::screensSlept}) {
        const MacNotice notice(kind, [probe] {});
        EXPECT_GT(probe.use_count(), 1);
    }
    EXPECT_EQ(probe.use_count(), 1);
}

}  // namespace

}  // namespace pimloft::test
