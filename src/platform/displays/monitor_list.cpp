// SPDX-License-Identifier: MIT
#include "platform/displays/monitor_list.h"

#include <algorithm>

namespace pimloft {

std::vector<Monitor> inDisplayOrder(std::vector<Monitor> monitors) {
    const auto isPrimary = [](const Monitor &monitor) { return monitor.isPrimary; };
    const auto isAtOrigin = [](const Monitor &monitor) { return monitor.frame.topLeft() == QPoint(0, 0); };
    std::erase_if(monitors, [](const Monitor &monitor) { return monitor.frame.isEmpty(); });
    if (std::any_of(monitors.begin(), monitors.end(), isPrimary))
        std::stable_partition(monitors.begin(), monitors.end(), isPrimary);
    else
        std::stable_partition(monitors.begin(), monitors.end(), isAtOrigin);

    std::vector<Monitor> shown;
    for (const Monitor &monitor : monitors) {
        const bool mirrors = std::any_of(shown.begin(), shown.end(),
                                         [&](const Monitor &other) { return other.frame == monitor.frame; });
        if (!mirrors)
            shown.push_back(monitor);
    }
    return shown;
}

}  // namespace pimloft
