// SPDX-License-Identifier: MIT
#include "windowsnap/snap_zone.h"

#include "base/geometry.h"
#include "platform/displays/displays.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pimloft {

namespace {

enum class Edge { left, right, top, bottom };

/// How far apart two displays may stand and still share an edge.
constexpr double sharedEdgeTolerance = 2.0;

bool overlapVertically(const QRectF &a, const QRectF &b) {
    return std::max(minY(a), minY(b)) < std::min(maxY(a), maxY(b));
}

bool overlapHorizontally(const QRectF &a, const QRectF &b) {
    return std::max(minX(a), minX(b)) < std::min(maxX(a), maxX(b));
}

bool meets(double a, double b) {
    return std::abs(a - b) < sharedEdgeTolerance;
}

/// Whether `other` lies against `edge` of `frame`, wherever along it.
bool liesAgainst(Edge edge, const QRectF &frame, const QRectF &other) {
    switch (edge) {
    case Edge::left:
        return meets(maxX(other), minX(frame)) && overlapVertically(frame, other);
    case Edge::right:
        return meets(minX(other), maxX(frame)) && overlapVertically(frame, other);
    case Edge::top:
        return meets(minY(other), maxY(frame)) && overlapHorizontally(frame, other);
    case Edge::bottom:
        return meets(maxY(other), minY(frame)) && overlapHorizontally(frame, other);
    }
    return false;
}

bool isShared(Edge edge, const Display &screen, std::span<const Display> displays) {
    return std::any_of(displays.begin(), displays.end(), [&](const Display &other) {
        return other != screen && liesAgainst(edge, screen.frame, other.frame);
    });
}

/// Which part of the visible area a zone fills: its corner nearest the origin and its size, as fractions.
struct Part {
    bool rightHalf;
    bool upperHalf;
    double width;
    double height;
};

/// Indexed by SnapZone.
constexpr std::array<Part, 7> parts{{
    {.rightHalf = false, .upperHalf = false, .width = 0.5, .height = 1},
    {.rightHalf = true, .upperHalf = false, .width = 0.5, .height = 1},
    {.rightHalf = false, .upperHalf = false, .width = 1, .height = 1},
    {.rightHalf = false, .upperHalf = true, .width = 0.5, .height = 0.5},
    {.rightHalf = true, .upperHalf = true, .width = 0.5, .height = 0.5},
    {.rightHalf = false, .upperHalf = false, .width = 0.5, .height = 0.5},
    {.rightHalf = true, .upperHalf = false, .width = 0.5, .height = 0.5},
}};

}  // namespace

std::optional<SnapZone> detect(QPointF cursorLocation, const Display &screen, double sensitivity,
                               std::span<const Display> displays) {
    const auto [x, y] = std::pair(cursorLocation.x(), cursorLocation.y());
    const bool left = x <= minX(screen.frame) + sensitivity;
    const bool right = x >= maxX(screen.frame) - sensitivity;
    const bool top = y >= maxY(screen.frame) - sensitivity;
    const bool bottom = y <= minY(screen.frame) + sensitivity;

    if ((left && isShared(Edge::left, screen, displays)) ||
        (right && isShared(Edge::right, screen, displays)) ||
        (top && isShared(Edge::top, screen, displays)) ||
        (bottom && isShared(Edge::bottom, screen, displays)))
        return std::nullopt;

    // The first match wins: on a display narrower than two bands, left before right and top before bottom.
    if (top && left)
        return SnapZone::topLeft;
    if (top && right)
        return SnapZone::topRight;
    if (bottom && left)
        return SnapZone::bottomLeft;
    if (bottom && right)
        return SnapZone::bottomRight;
    if (left)
        return SnapZone::left;
    if (right)
        return SnapZone::right;
    if (top)
        return SnapZone::top;
    return std::nullopt;
}

QRectF targetFrame(SnapZone zone, const Display &screen) {
    const QRectF &area = screen.visibleFrame;
    const Part &part = parts[static_cast<std::size_t>(zone)];
    return {part.rightHalf ? midX(area) : minX(area), part.upperHalf ? midY(area) : minY(area),
            area.width() * part.width, area.height() * part.height};
}

}  // namespace pimloft
