// SPDX-License-Identifier: MIT
#include "ui/kit/theme.h"

#include "app/process.h"
#include "platform/appearance/appearance.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QJSEngine>

#include <algorithm>
#include <array>
#include <utility>

namespace pimloft {

namespace {

/// Names under which a desktop asks for no font in particular.
constexpr std::array genericFamilies{"sans", "sans-serif", "sans serif", "system-ui", ""};

/// What to take then: faces drawn for screens, the best first.
constexpr std::array preferredFamilies{"Inter", "Noto Sans", "Cantarell", "Ubuntu", "Roboto", "DejaVu Sans"};

QStringList interfaceFamilies() {
    const QStringList wished = QGuiApplication::font().families();
    const QString first = wished.value(0);
    const bool generic =
        std::any_of(genericFamilies.begin(), genericFamilies.end(), [&first](const char *family) {
            return first.compare(QLatin1String(family), Qt::CaseInsensitive) == 0;
        });
    if (!generic)
        return wished;
    QStringList families;
    for (const char *family : preferredFamilies)
        if (QFontDatabase::hasFamily(QLatin1String(family)))
            families << QLatin1String(family);
    return families + wished;
}

/// Desktops of today ask for 10 or 11 typographic points. Neither a tiny nor a huge wish breaks the layout.
double interfaceSize() {
    return std::clamp(QFontInfo(QGuiApplication::font()).pixelSize(), 13, 20);
}

}  // namespace

ThemeColors ThemeColors::light() {
    ThemeColors colors;
    colors.window = 0xf5f5f8;
    colors.sidebar = 0xebecf1;
    colors.card = 0xffffff;
    colors.outline = 0xdedfe6;
    colors.separator = 0xe9eaef;
    colors.text = 0x1b1c20;
    colors.secondaryText = 0x5f616b;
    colors.accent = 0x2563eb;
    colors.accentEnd = 0x0891b2;
    colors.accentPressed = 0x1d4fc4;
    colors.onAccent = 0xffffff;
    colors.accentText = 0x1d4ed8;
    colors.accentSoft = 0xe2ebfd;
    colors.control = 0xffffff;
    colors.controlHovered = 0xf6f7fa;
    colors.controlPressed = 0xe9eaf0;
    colors.controlOutline = 0xc9cbd4;
    colors.hovered = 0xf4f5f9;
    colors.unlit = 0xe9eaf0;
    colors.track = 0xc6c8d1;
    colors.knob = 0xffffff;
    colors.success = 0x147a3a;
    colors.successSoft = 0xddf3e4;
    colors.warning = 0xa34a08;
    colors.warningSoft = 0xfdf0dc;
    colors.danger = 0xc3261c;
    colors.focusRing = 0x5b8df5;
    return colors;
}

ThemeColors ThemeColors::dark() {
    ThemeColors colors;
    colors.window = 0x1c1d20;
    colors.sidebar = 0x232428;
    colors.card = 0x292a2f;
    colors.outline = 0x3a3b42;
    colors.separator = 0x36373d;
    colors.text = 0xf1f1f4;
    colors.secondaryText = 0xa7a9b4;
    colors.accent = 0x2d6bf0;
    colors.accentEnd = 0x0e9bbd;
    colors.accentPressed = 0x2459ce;
    colors.onAccent = 0xffffff;
    colors.accentText = 0x83b1ff;
    colors.accentSoft = 0x22314f;
    colors.control = 0x3a3b42;
    colors.controlHovered = 0x43454d;
    colors.controlPressed = 0x33343a;
    colors.controlOutline = 0x4d4f58;
    colors.hovered = 0x313238;
    colors.unlit = 0x3d3e45;
    colors.track = 0x565862;
    colors.knob = 0xf4f4f7;
    colors.success = 0x57d487;
    colors.successSoft = 0x1d3a29;
    colors.warning = 0xf6b73c;
    colors.warningSoft = 0x3d3019;
    colors.danger = 0xff7b72;
    colors.focusRing = 0x6b9dfb;
    return colors;
}

Theme &Theme::shared() {
    return Process::current().shared<Theme>(
        [](Process &process) { return std::make_unique<Theme>(process.platform().appearance); });
}

Theme::Theme(AppearanceService &appearance)
    : appearance_(appearance), isDark_(appearance.isDark()),
      colors_(isDark_ ? ThemeColors::dark() : ThemeColors::light()), families_(interfaceFamilies()),
      bodySize_(interfaceSize()) {
    appearance_.onChanged = [this] { read(); };
}

Theme::~Theme() {
    appearance_.onChanged = nullptr;
}

Theme *Theme::create(QQmlEngine *, QJSEngine *) {
    Theme *theme = &shared();
    QJSEngine::setObjectOwnership(theme, QJSEngine::CppOwnership);
    return theme;
}

void Theme::read() {
    if (std::exchange(isDark_, appearance_.isDark()) == isDark_)
        return;
    colors_ = isDark_ ? ThemeColors::dark() : ThemeColors::light();
    emit changed();
}

QFont Theme::font(double factor, QFont::Weight weight) const {
    QFont font;
    font.setFamilies(families_);
    font.setPixelSize(qRound(bodySize_ * factor));
    font.setWeight(weight);
    return font;
}

QFont Theme::keyFont(double factor) const {
    QFont keys = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    keys.setPixelSize(qRound(bodySize_ * factor));
    return keys;
}

}  // namespace pimloft
