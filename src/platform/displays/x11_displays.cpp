// SPDX-License-Identifier: MIT
#include "platform/displays/x11_displays.h"

#include <xcb/randr.h>

#include <algorithm>

namespace pimloft {

X11Displays::X11Displays(X11Session &session, double scale) : session_(session) {
    space_.scale = scale;
    read();
}

void X11Displays::read() {
    struct Monitor {
        DisplayId id;
        QRect frame;
        bool primary;
    };
    std::vector<Monitor> monitors;
    const auto cookie = xcb_randr_get_monitors(session_.connection(), session_.root(), true);
    const XcbReply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(session_.connection(), cookie, nullptr));
    if (!reply)
        return;
    for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem;
         xcb_randr_monitor_info_next(&each))
        monitors.push_back({DisplayId(each.data->name),
                            QRect(each.data->x, each.data->y, each.data->width, each.data->height),
                            each.data->primary != 0});
    std::stable_partition(monitors.begin(), monitors.end(), [](const Monitor &m) { return m.primary; });
    displays_.clear();
    if (monitors.empty())
        return;
    space_.primary = monitors.front().frame;
    for (const Monitor &monitor : monitors) {
        const QRectF frame = space_.toDesktop(monitor.frame);
        displays_.push_back({monitor.id, frame, frame});
    }
}

const std::vector<Display> &X11Displays::displays() {
    return displays_;
}

std::optional<Display> X11Displays::mainDisplay() {
    return displays_.empty() ? std::nullopt : std::optional(displays_.front());
}

PointSpace X11Displays::pointSpace() {
    return space_;
}

}  // namespace pimloft
