// SPDX-License-Identifier: MIT
#include "platform/displays/mac_displays.h"

#include "platform/displays/mac_screens.h"

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

QRectF qtRect(const MacRect &rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

}  // namespace

MacDisplays::MacDisplays() : changes_(MacNotice::Kind::screensChanged, [this] { invalidate(); }) {
}

const std::vector<Display> &MacDisplays::displays() {
    if (std::exchange(isCurrent_, true))
        return displays_;
    displays_.clear();
    for (const MacScreen &screen : connectedScreens())
        displays_.push_back({DisplayId(screen.number), qtRect(screen.frame), qtRect(screen.visibleFrame)});
    return displays_;
}

std::optional<Display> MacDisplays::mainDisplay() {
    const auto &all = displays();
    const auto number = mainScreen();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const Display &each) { return number && each.id == DisplayId(*number); });
    if (found != all.end())
        return *found;
    return all.empty() ? std::nullopt : std::optional(all.front());
}

void MacDisplays::invalidate() {
    isCurrent_ = false;
    if (std::exchange(isAnnouncing_, true))
        return;
    QMetaObject::invokeMethod(
        &calls_,
        [this] {
            isAnnouncing_ = false;
            if (onChanged)
                onChanged();
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
