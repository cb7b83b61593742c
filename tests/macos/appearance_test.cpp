// SPDX-License-Identifier: MIT
#include "platform/appearance/mac_appearance.h"

#include "fake_appkit.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

class MacAppearanceTest : public MacTest {
protected:
    MacAppearance appearance_;
};

TEST_F(MacAppearanceTest, followsWhatTheSystemGivesTheApplication) {
    EXPECT_EQ(log(), "observe effectiveAppearance\n");
    EXPECT_FALSE(appearance_.isDark());
    mac::changeAppearance(true);
    EXPECT_TRUE(appearance_.isDark());
}

TEST_F(MacAppearanceTest, knowsTheLookFromTheBeginning) {
    mac::desktop().isDark = true;
    EXPECT_TRUE(MacAppearance().isDark());
}

TEST_F(MacAppearanceTest, tellsLaterAndOnlyOfAnotherLook) {
    int told = 0;
    appearance_.onChanged = [&] { ++told; };
    mac::changeAppearance(true);
    EXPECT_EQ(told, 0);
    runQueue();
    EXPECT_EQ(told, 1);
    mac::touchAppearance();
    runQueue();
    EXPECT_EQ(told, 1);
}

TEST_F(MacAppearanceTest, knowsTheUsersWishesForContrastAndMotion) {
    int told = 0;
    appearance_.onChanged = [&] { ++told; };
    mac::changeDisplayOptions(true, false);
    EXPECT_TRUE(appearance_.isHighContrast());
    EXPECT_FALSE(appearance_.reducesMotion());
    mac::changeDisplayOptions(false, true);
    EXPECT_FALSE(appearance_.isHighContrast());
    EXPECT_TRUE(appearance_.reducesMotion());
    runQueue();
    EXPECT_EQ(told, 2);
}

TEST_F(MacAppearanceTest, givesTheTrayTheSystemsSymbolAsATemplate) {
    EXPECT_TRUE(appearance_.traySymbol(QStringLiteral("square.on.square")).isMask());
    EXPECT_THAT(log(), testing::HasSubstr("symbol square.on.square\nas a template\n"));
}

TEST_F(MacAppearanceTest, hearsNothingOnceItIsGone) {
    int told = 0;
    {
        MacAppearance appearance;
        appearance.onChanged = [&] { ++told; };
        mac::changeAppearance(true);
    }
    mac::changeAppearance(false);
    runQueue();
    EXPECT_EQ(told, 0);
}

}  // namespace

}  // namespace pimloft::test
