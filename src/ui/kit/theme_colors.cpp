// SPDX-License-Identifier: MIT
#include "ui/kit/theme.h"

namespace pimloft {

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
    colors.danger = 0xc8281e;
    colors.pinned = 0xd96a00;
    colors.focusRing = 0x5b8df5;
    colors.shade = QColor(0x16, 0x18, 0x20, 92);
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
    colors.danger = 0xff6b61;
    colors.pinned = 0xff9f2e;
    colors.focusRing = 0x6b9dfb;
    colors.shade = QColor(0, 0, 0, 150);
    return colors;
}

ThemeColors ThemeColors::lightHighContrast() {
    ThemeColors colors;
    colors.window = 0xffffff;
    colors.sidebar = 0xffffff;
    colors.card = 0xffffff;
    colors.outline = QRgb(0);
    colors.separator = 0x6a6a6a;
    colors.text = QRgb(0);
    colors.secondaryText = 0x2b2b2b;
    colors.accent = 0x0f3fae;
    colors.accentEnd = 0x06566b;
    colors.accentPressed = 0x0a2c7a;
    colors.onAccent = 0xffffff;
    colors.accentText = 0x0b3596;
    colors.accentSoft = 0xe6edff;
    colors.control = 0xffffff;
    colors.controlHovered = 0xe8e8e8;
    colors.controlPressed = 0xcfcfcf;
    colors.controlOutline = QRgb(0);
    colors.hovered = 0xe8e8e8;
    colors.unlit = 0xe0e0e0;
    colors.track = 0x5c5c5c;
    colors.knob = 0xffffff;
    colors.success = 0x00501e;
    colors.successSoft = 0xe3f7e9;
    colors.warning = 0x6b2c00;
    colors.warningSoft = 0xfff1dd;
    colors.danger = 0x8f0d05;
    colors.pinned = 0x8a3b00;
    colors.focusRing = 0x0f3fae;
    colors.shade = QColor(0, 0, 0, 170);
    return colors;
}

ThemeColors ThemeColors::darkHighContrast() {
    ThemeColors colors;
    colors.window = QRgb(0);
    colors.sidebar = QRgb(0);
    colors.card = QRgb(0);
    colors.outline = 0xffffff;
    colors.separator = 0x8c8c8c;
    colors.text = 0xffffff;
    colors.secondaryText = 0xdcdcdc;
    colors.accent = 0x8ab4ff;
    colors.accentEnd = 0x67d8f0;
    colors.accentPressed = 0xb5d0ff;
    colors.onAccent = QRgb(0);
    colors.accentText = 0x9cc2ff;
    colors.accentSoft = 0x10203f;
    colors.control = QRgb(0);
    colors.controlHovered = 0x2b2b2b;
    colors.controlPressed = 0x454545;
    colors.controlOutline = 0xffffff;
    colors.hovered = 0x2b2b2b;
    colors.unlit = 0x333333;
    colors.track = 0x8c8c8c;
    colors.knob = QRgb(0);
    colors.success = 0x7ff0a8;
    colors.successSoft = 0x06260f;
    colors.warning = 0xffd36b;
    colors.warningSoft = 0x2e2100;
    colors.danger = 0xff9b94;
    colors.pinned = 0xffb866;
    colors.focusRing = 0xffffff;
    colors.shade = QColor(0, 0, 0, 200);
    return colors;
}

}  // namespace pimloft
