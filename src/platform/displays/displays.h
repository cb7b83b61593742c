// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pimloft {

/// Tells one display from another for as long as it is connected.
enum class DisplayId : std::uint32_t {};

/// One display of the desktop. A value; any thread.
///
/// Rectangles are in desktop points: origin at the bottom-left corner of the primary display, y growing
/// upwards.
struct Display {
    DisplayId id{};
    QRectF frame;         ///< the whole display
    QRectF visibleFrame;  ///< less the bars and docks that reserve space on it

    /// The same display, wherever it stands now.
    friend bool operator==(const Display &a, const Display &b) { return a.id == b.id; }
};

/// The displays of this desktop. Main thread.
class DisplayService {
public:
    virtual ~DisplayService() = default;

    /// The primary display first; empty while none is connected. Cheap enough for every event of a drag.
    virtual const std::vector<Display> &displays() = 0;

    /// The one that holds the active window, else the primary.
    virtual std::optional<Display> mainDisplay() = 0;

    /// Called, queued, after a display came, went or changed its size or its reserved space.
    std::function<void()> onChanged;
};

}  // namespace pimloft
