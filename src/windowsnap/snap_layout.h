// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace pimloft {

struct Display;

/// A way to divide a display among several windows. Pure geometry; any thread.
enum class SnapLayout : int { halfHalf, sevenThree, threeSeven, thirds, halfQuarters, quarters };

/// In the order of their numbers on the keyboard.
inline constexpr std::array allSnapLayouts{SnapLayout::halfHalf,     SnapLayout::sevenThree,
                                           SnapLayout::threeSeven,   SnapLayout::thirds,
                                           SnapLayout::halfQuarters, SnapLayout::quarters};

/// Nothing for a value that no layout has.
std::optional<SnapLayout> snapLayout(int rawValue);

/// The place of one window as fractions of the visible area, y counted from its bottom.
struct SlotFractions {
    double x;
    double y;
    double width;
    double height;
};

/// A layout's places in their order; the first is the one that a shortcut fills.
std::span<const SlotFractions> slotFractions(SnapLayout layout);

/// The rectangle of each place in the visible area of `screen`, in desktop points, not rounded.
std::vector<QRectF> frames(SnapLayout layout, const Display &screen);

/// What the user calls it, in the user's language.
QString displayName(SnapLayout layout);

}  // namespace pimloft
