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
#include <tuple>

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

Theme &Theme::shared() {
    return Process::current().shared<Theme>(
        [](Process &process) { return std::make_unique<Theme>(process.platform().appearance); });
}

Theme::Theme(AppearanceService &appearance)
    : appearance_(appearance), families_(interfaceFamilies()), bodySize_(interfaceSize()) {
    read();
    appearance_.onChanged = [this] {
        if (read())
            emit changed();
    };
}

Theme::~Theme() {
    appearance_.onChanged = nullptr;
}

Theme *Theme::create(QQmlEngine *, QJSEngine *) {
    Theme *theme = &shared();
    QJSEngine::setObjectOwnership(theme, QJSEngine::CppOwnership);
    return theme;
}

bool Theme::read() {
    const auto look = [this] { return std::tuple(isDark_, isHighContrast_, reducesMotion_); };
    const auto before = look();
    isDark_ = appearance_.isDark();
    isHighContrast_ = appearance_.isHighContrast();
    reducesMotion_ = appearance_.reducesMotion();
    if (isHighContrast_)
        colors_ = isDark_ ? ThemeColors::darkHighContrast() : ThemeColors::lightHighContrast();
    else
        colors_ = isDark_ ? ThemeColors::dark() : ThemeColors::light();
    return look() != before;
}

QFont Theme::font(double factor, QFont::Weight weight) const {
    QFont font;
    font.setFamilies(families_);
    font.setPixelSize(qRound(bodySize_ * factor));
    font.setWeight(weight);
    return font;
}

QFont Theme::display() const {
    QFont display = font(1, QFont::DemiBold);
    display.setPixelSize(48);
    return display;
}

QFont Theme::keyFont(double factor) const {
    QFont keys = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    keys.setPixelSize(qRound(bodySize_ * factor));
    return keys;
}

}  // namespace pimloft
