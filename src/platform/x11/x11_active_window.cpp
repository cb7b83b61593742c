// SPDX-License-Identifier: MIT
#include "platform/x11/x11_active_window.h"

#include <algorithm>

namespace pimloft {

X11ActiveWindow::X11ActiveWindow(X11Session &session) : session_(session) {
    session_.select(session_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
    announced_ = current();
}

X11ActiveWindow::~X11ActiveWindow() = default;

xcb_window_t X11ActiveWindow::current() {
    if (!hasWindowManager())
        return XCB_NONE;
    // Some window managers write a second value; openbox may leave the id of a window that is gone.
    const auto active = session_.property32(session_.root(), session_.atom("_NET_ACTIVE_WINDOW"));
    if (active.empty() || active.front() == XCB_NONE)
        return XCB_NONE;
    named_ = active.front();
    session_.select(named_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const auto managed = session_.property32(session_.root(), session_.atom("_NET_CLIENT_LIST"));
    if (std::find(managed.begin(), managed.end(), named_) == managed.end())
        return XCB_NONE;
    return session_.isMapped(named_) ? named_ : xcb_window_t(XCB_NONE);
}

bool X11ActiveWindow::hasWindowManager() {
    const xcb_atom_t check = session_.atom("_NET_SUPPORTING_WM_CHECK");
    const auto named = session_.property32(session_.root(), check);
    // A window manager that was killed leaves its properties on the root, but not this window.
    if (named.empty() || session_.property32(named.front(), check) != named)
        return false;
    managerCheck_ = named.front();
    session_.select(managerCheck_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    return true;
}

void X11ActiveWindow::handle(const xcb_generic_event_t &event) {
    switch (X11Session::type(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto &notice = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (notice.window == session_.root() && (notice.atom == session_.atom("_NET_ACTIVE_WINDOW") ||
                                                 notice.atom == session_.atom("_NET_CLIENT_LIST") ||
                                                 notice.atom == session_.atom("_NET_SUPPORTING_WM_CHECK")))
            announce();
        break;
    }
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_DESTROY_NOTIFY: {
        // The three begin alike.
        const auto &notice = reinterpret_cast<const xcb_unmap_notify_event_t &>(event);
        if (notice.event == notice.window && (notice.window == named_ || notice.window == managerCheck_))
            announce();
        break;
    }
    }
}

void X11ActiveWindow::announce() {
    const xcb_window_t active = current();
    if (active == announced_)
        return;
    announced_ = active;
    emit changed(active);
}

}  // namespace pimloft
