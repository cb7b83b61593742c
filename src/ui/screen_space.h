// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRectF>

#include <optional>
#include <vector>

namespace pimloft {

/// How the coordinates in which Qt places windows become desktop points, and back. A value; any thread.
///
/// With a scale factor Qt keeps each screen's origin in native pixels but counts sizes and distances on it in
/// device-independent ones. Desktop points count uniformly from the primary screen's bottom-left corner, y
/// upwards.
class ScreenSpace {
public:
    struct Screen {
        QRect geometry;    ///< as Qt gives it
        double ratio = 1;  ///< native pixels per device-independent one
    };

    /// The primary screen first.
    explicit ScreenSpace(std::vector<Screen> screens) : screens_(std::move(screens)) {}

    /// The screens that are connected now.
    static ScreenSpace current();

    QRectF toDesktop(const QRect &qt) const;
    /// Where Qt has this desktop point, and the index of its screen. Nothing while there is no screen.
    struct Place {
        std::size_t screen;
        QPointF position;
    };
    std::optional<Place> toQt(QPointF desktop) const;

private:
    std::vector<Screen> screens_;
};

}  // namespace pimloft
