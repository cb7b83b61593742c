// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>
#include <vector>

namespace pimloft {

/// What one window reserves along an edge of the root: everything from there to `depth`, between `start` and
/// `end` (both included) along the edge. Native pixels. A value.
struct StrutEdge {
    std::int64_t depth = 0;
    std::int64_t start = 0;
    std::int64_t end = 0;
};

struct Strut {
    StrutEdge left = {};
    StrutEdge right = {};
    StrutEdge top = {};
    StrutEdge bottom = {};
};

/// Reads the values of _NET_WM_STRUT_PARTIAL, else those of _NET_WM_STRUT, which count along the whole edge.
/// Nothing when neither is complete or nothing is reserved. Pure.
std::optional<Strut> parseStrut(const std::vector<std::uint32_t> &partial,
                                const std::vector<std::uint32_t> &whole, QSize root);

/// What `struts` leave of a monitor, in native pixels of a root of this size. A strut counts only where it
/// ends inside the monitor: one that covers it wholly belongs to a bar on the far side of another monitor.
/// Struts that would leave nothing of an axis leave all of it. Pure.
QRect workArea(const QRect &monitor, const std::vector<Strut> &struts, QSize root);

}  // namespace pimloft
