// SPDX-License-Identifier: MIT
#include "ui/widget_look.h"

#include "ui/kit/theme.h"

#include <QApplication>
#include <QStyle>

namespace pimloft {

namespace {

constexpr double disabledOpacity = 0.5;

QColor faded(QColor color) {
    color.setAlphaF(float(color.alphaF() * disabledOpacity));
    return color;
}

}  // namespace

WidgetLook::WidgetLook(Theme &theme) : theme_(theme) {
    // Other styles bring colours of their own, or none for a dark look.
    QApplication::setStyle(QStringLiteral("Fusion"));
    connect(&theme_, &Theme::changed, this, &WidgetLook::dress);
    dress();
}

void WidgetLook::dress() {
    QApplication::setFont(theme_.body());
    QApplication::setPalette(palette(theme_.colors()));
}

QPalette WidgetLook::palette(const ThemeColors &colors) {
    QPalette palette(colors.control, colors.window);
    palette.setColor(QPalette::Window, colors.window);
    palette.setColor(QPalette::Base, colors.card);
    palette.setColor(QPalette::AlternateBase, colors.hovered);
    palette.setColor(QPalette::Button, colors.control);
    palette.setColor(QPalette::ToolTipBase, colors.control);
    palette.setColor(QPalette::ToolTipText, colors.text);
    palette.setColor(QPalette::BrightText, colors.onAccent);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.onAccent);
    palette.setColor(QPalette::Link, colors.accentText);
    palette.setColor(QPalette::LinkVisited, colors.accentText);
    palette.setColor(QPalette::PlaceholderText, colors.secondaryText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, colors.text);
        palette.setColor(QPalette::Disabled, role, faded(colors.text));
    }
    return palette;
}

}  // namespace pimloft
