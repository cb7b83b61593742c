// SPDX-License-Identifier: MIT
#include "windowsnap/snap_layout.h"

#include "base/geometry.h"
#include "platform/displays/displays.h"

#include <QCoreApplication>

namespace pimloft {

namespace {

constexpr double third = 1.0 / 3.0;
constexpr double twoThirds = 2.0 / 3.0;

constexpr SlotFractions leftHalf{0, 0, 0.5, 1};
constexpr SlotFractions rightHalf{0.5, 0, 0.5, 1};
constexpr SlotFractions topLeftQuarter{0, 0.5, 0.5, 0.5};
constexpr SlotFractions topRightQuarter{0.5, 0.5, 0.5, 0.5};
constexpr SlotFractions bottomLeftQuarter{0, 0, 0.5, 0.5};
constexpr SlotFractions bottomRightQuarter{0.5, 0, 0.5, 0.5};

constexpr std::array halfHalf{leftHalf, rightHalf};
constexpr std::array sevenThree{SlotFractions{0, 0, 0.7, 1}, SlotFractions{0.7, 0, 0.3, 1}};
constexpr std::array threeSeven{SlotFractions{0, 0, 0.3, 1}, SlotFractions{0.3, 0, 0.7, 1}};
constexpr std::array thirds{SlotFractions{0, 0, third, 1}, SlotFractions{third, 0, third, 1},
                            SlotFractions{twoThirds, 0, third, 1}};
constexpr std::array halfQuarters{leftHalf, topRightQuarter, bottomRightQuarter};
constexpr std::array quarters{topLeftQuarter, topRightQuarter, bottomLeftQuarter, bottomRightQuarter};

struct Definition {
    const char *name;
    std::span<const SlotFractions> fractions;
};

/// Indexed by raw value.
constexpr std::array<Definition, allSnapLayouts.size()> definitions{{
    {QT_TRANSLATE_NOOP("SnapLayout", "Half & Half"), halfHalf},
    {QT_TRANSLATE_NOOP("SnapLayout", "70/30"), sevenThree},
    {QT_TRANSLATE_NOOP("SnapLayout", "30/70"), threeSeven},
    {QT_TRANSLATE_NOOP("SnapLayout", "Thirds"), thirds},
    {QT_TRANSLATE_NOOP("SnapLayout", "Half + Quarters"), halfQuarters},
    {QT_TRANSLATE_NOOP("SnapLayout", "Quarters"), quarters},
}};

const Definition &definition(SnapLayout layout) {
    return definitions[static_cast<std::size_t>(layout)];
}

}  // namespace

std::optional<SnapLayout> snapLayout(int rawValue) {
    if (rawValue < 0 || rawValue >= int(allSnapLayouts.size()))
        return std::nullopt;
    return SnapLayout(rawValue);
}

std::span<const SlotFractions> slotFractions(SnapLayout layout) {
    return definition(layout).fractions;
}

std::vector<QRectF> frames(SnapLayout layout, const Display &screen) {
    const QRectF &area = screen.visibleFrame;
    std::vector<QRectF> result;
    for (const SlotFractions &slot : slotFractions(layout))
        result.emplace_back(minX(area) + slot.x * area.width(), minY(area) + slot.y * area.height(),
                            slot.width * area.width(), slot.height * area.height());
    return result;
}

QString displayName(SnapLayout layout) {
    return QCoreApplication::translate("SnapLayout", definition(layout).name);
}

}  // namespace pimloft
