// SPDX-License-Identifier: MIT
#include "platform/displays/work_area.h"

#include <algorithm>

namespace pimloft {

namespace {

/// A stretch of pixels along one axis, from `begin` up to, not including, `end`.
struct Span {
    std::int64_t begin;
    std::int64_t end;
};

bool isBeside(const StrutEdge &edge, Span along) {
    return edge.start <= edge.end && edge.start < along.end && edge.end >= along.begin;
}

/// What two opposite struts of every window leave of `across`; `along` is the monitor on the other axis.
Span remaining(Span across, Span along, std::int64_t rootLength, const std::vector<Strut> &struts,
               StrutEdge Strut::*near, StrutEdge Strut::*far) {
    Span rest = across;
    for (const Strut &strut : struts) {
        const std::int64_t nearEnd = (strut.*near).depth;
        if (nearEnd > across.begin && nearEnd < across.end && isBeside(strut.*near, along))
            rest.begin = std::max(rest.begin, nearEnd);
        const std::int64_t farEnd = rootLength - (strut.*far).depth;
        if (farEnd > across.begin && farEnd < across.end && isBeside(strut.*far, along))
            rest.end = std::min(rest.end, farEnd);
    }
    return rest.begin < rest.end ? rest : across;
}

}  // namespace

std::optional<Strut> parseStrut(const std::vector<std::uint32_t> &partial,
                                const std::vector<std::uint32_t> &whole, QSize root) {
    Strut strut;
    if (partial.size() == 12) {
        strut.left = {partial[0], partial[4], partial[5]};
        strut.right = {partial[1], partial[6], partial[7]};
        strut.top = {partial[2], partial[8], partial[9]};
        strut.bottom = {partial[3], partial[10], partial[11]};
    } else if (whole.size() == 4) {
        strut.left = {whole[0], 0, root.height() - 1};
        strut.right = {whole[1], 0, root.height() - 1};
        strut.top = {whole[2], 0, root.width() - 1};
        strut.bottom = {whole[3], 0, root.width() - 1};
    }
    const bool reserves =
        strut.left.depth > 0 || strut.right.depth > 0 || strut.top.depth > 0 || strut.bottom.depth > 0;
    return reserves ? std::optional(strut) : std::nullopt;
}

QRect workArea(const QRect &monitor, const std::vector<Strut> &struts, QSize root) {
    const Span columns{monitor.x(), monitor.x() + monitor.width()};
    const Span rows{monitor.y(), monitor.y() + monitor.height()};
    const Span x = remaining(columns, rows, root.width(), struts, &Strut::left, &Strut::right);
    const Span y = remaining(rows, columns, root.height(), struts, &Strut::top, &Strut::bottom);
    return {int(x.begin), int(y.begin), int(x.end - x.begin), int(y.end - y.begin)};
}

}  // namespace pimloft
