// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/displays.h"

namespace pimloft {

/// Displays that a test connects and moves as it likes.
class FakeDisplays final : public DisplayService {
public:
    const std::vector<Display> &displays() override { return list; }
    std::optional<Display> mainDisplay() override {
        for (const Display &display : list)
            if (display.id == main)
                return display;
        return list.empty() ? std::nullopt : std::optional(list.front());
    }

    /// A display without bars: its visible frame is its frame.
    void add(DisplayId id, const QRectF &frame) { list.push_back({id, frame, frame}); }

    std::vector<Display> list;
    DisplayId main{};
};

}  // namespace pimloft
