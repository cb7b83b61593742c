// SPDX-License-Identifier: MIT
#include "ui/kit/theme.h"

#include "platform/appearance/fake_appearance.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cmath>

namespace pimloft {
namespace {

/// Relative luminance as the accessibility guidelines for web content define it.
double luminance(const QColor &color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b) {
    const double brighter = std::max(luminance(a), luminance(b));
    return (brighter + 0.05) / (std::min(luminance(a), luminance(b)) + 0.05);
}

struct Pair {
    const char *name;
    QColor ThemeColors::*ink;
    QColor ThemeColors::*paper;
};

std::ostream &operator<<(std::ostream &stream, const Pair &pair) {
    return stream << pair.name;
}

using C = ThemeColors;

class ReadableText : public testing::TestWithParam<Pair> {};

TEST_P(ReadableText, standsOutInBothLooks) {
    const auto &[name, ink, paper] = GetParam();
    EXPECT_GE(contrast(C::light().*ink, C::light().*paper), 4.5) << name << " in the light look";
    EXPECT_GE(contrast(C::dark().*ink, C::dark().*paper), 4.5) << name << " in the dark look";
}

TEST_P(ReadableText, standsOutFarMoreInHighContrast) {
    const auto &[name, ink, paper] = GetParam();
    EXPECT_GE(contrast(C::lightHighContrast().*ink, C::lightHighContrast().*paper), 7) << name << ", light";
    EXPECT_GE(contrast(C::darkHighContrast().*ink, C::darkHighContrast().*paper), 7) << name << ", dark";
}

INSTANTIATE_TEST_SUITE_P(
    Theme, ReadableText,
    testing::Values(
        Pair{"text on window", &C::text, &C::window}, Pair{"text on sidebar", &C::text, &C::sidebar},
        Pair{"text on card", &C::text, &C::card}, Pair{"text on a hovered row", &C::text, &C::hovered},
        Pair{"text on control", &C::text, &C::control},
        Pair{"text on a hovered control", &C::text, &C::controlHovered},
        Pair{"text on a pressed control", &C::text, &C::controlPressed},
        Pair{"secondary text on window", &C::secondaryText, &C::window},
        Pair{"secondary text on sidebar", &C::secondaryText, &C::sidebar},
        Pair{"secondary text on card", &C::secondaryText, &C::card},
        Pair{"secondary text on a hovered row", &C::secondaryText, &C::hovered},
        Pair{"danger on window", &C::danger, &C::window}, Pair{"danger on card", &C::danger, &C::card},
        Pair{"text on accent", &C::onAccent, &C::accent},
        Pair{"text on pressed accent", &C::onAccent, &C::accentPressed},
        Pair{"accent text on window", &C::accentText, &C::window},
        Pair{"accent text on card", &C::accentText, &C::card},
        Pair{"accent text on its wash", &C::accentText, &C::accentSoft},
        Pair{"success on card", &C::success, &C::card},
        Pair{"success on its wash", &C::success, &C::successSoft},
        Pair{"warning on window", &C::warning, &C::window}, Pair{"warning on card", &C::warning, &C::card},
        Pair{"warning on its wash", &C::warning, &C::warningSoft},
        Pair{"text on a warning's wash", &C::text, &C::warningSoft}));

TEST(Theme, theMarkOfWhatIsPinnedStandsOut) {
    EXPECT_GE(contrast(C::light().pinned, C::light().window), 3);
    EXPECT_GE(contrast(C::dark().pinned, C::dark().window), 3);
}

TEST(Theme, whatIsDrawnInTheBrandsColoursStandsOutFromEndToEnd) {
    for (const C &colors : {C::light(), C::dark(), C::lightHighContrast(), C::darkHighContrast()}) {
        for (const QColor &end : {colors.accent, colors.accentEnd}) {
            EXPECT_GE(contrast(colors.onAccent, end), 3);
            EXPECT_GE(contrast(end, colors.card), 3);
        }
    }
}

TEST(Theme, hasTheBrandsColoursInTheLightLook) {
    EXPECT_EQ(C::light().accent, QColor(0x25, 0x63, 0xeb));
    EXPECT_EQ(C::light().accentEnd, QColor(0x08, 0x91, 0xb2));
}

TEST(Theme, outlinesEveryControlInHighContrast) {
    for (const C &colors : {C::lightHighContrast(), C::darkHighContrast()}) {
        EXPECT_GE(contrast(colors.controlOutline, colors.card), 4.5);
        EXPECT_GE(contrast(colors.outline, colors.window), 4.5);
        EXPECT_GE(contrast(colors.focusRing, colors.window), 4.5);
        EXPECT_GE(contrast(colors.track, colors.card), 4.5);
    }
}

TEST(Theme, followsAWishForHighContrastInEitherLook) {
    FakeAppearance desktop;
    Theme theme(desktop);
    QSignalSpy changed(&theme, &Theme::changed);
    desktop.setHighContrast(true);
    EXPECT_EQ(theme.colors().outline, C::lightHighContrast().outline);
    desktop.setDark(true);
    EXPECT_EQ(theme.colors().outline, C::darkHighContrast().outline);
    desktop.setHighContrast(false);
    EXPECT_EQ(theme.colors().outline, C::dark().outline);
    EXPECT_EQ(changed.size(), 3);
}

TEST(Theme, givesMotionNoTimeWhereTheUserWantsNone) {
    FakeAppearance desktop;
    Theme theme(desktop);
    EXPECT_GT(theme.calm(), theme.quick());
    QSignalSpy changed(&theme, &Theme::changed);
    desktop.setReducesMotion(true);
    EXPECT_EQ(theme.calm(), 0);
    EXPECT_EQ(theme.quick(), 0);
    EXPECT_EQ(changed.size(), 1);
}

TEST(Theme, followsTheDesktopBetweenLightAndDark) {
    FakeAppearance desktop;
    Theme theme(desktop);
    QSignalSpy changed(&theme, &Theme::changed);
    EXPECT_FALSE(theme.isDark());

    desktop.setDark(true);
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.colors().window, C::dark().window);
    desktop.setDark(true);
    EXPECT_EQ(changed.size(), 1) << "told although nothing changed";
}

TEST(Theme, startsInTheLookThatTheDesktopHas) {
    FakeAppearance desktop;
    desktop.setDark(true);
    EXPECT_EQ(Theme(desktop).colors().text, C::dark().text);
}

TEST(Theme, theTypeScaleDescends) {
    FakeAppearance desktop;
    const Theme theme(desktop);
    EXPECT_GT(theme.title().pixelSize(), theme.body().pixelSize());
    EXPECT_GE(theme.body().pixelSize(), theme.callout().pixelSize());
    EXPECT_GT(theme.callout().pixelSize(), theme.caption().pixelSize());
    EXPECT_GE(theme.caption().pixelSize(), 11) << "too small to read";
}

}  // namespace
}  // namespace pimloft
