// SPDX-License-Identifier: MIT
#include "platform/x11/x11_active_window.h"

#include <algorithm>

namespace pimloft {

namespace {

xcb_window_t first(const std::vector<std::uint32_t> &windows) {
    return windows.empty() ? xcb_window_t(XCB_NONE) : windows.front();
}

/// Some window managers unmap what is rolled up into its title bar.
bool isShaded(X11Session &session, xcb_window_t window) {
    const auto states = session.property32(window, session.atom("_NET_WM_STATE"));
    return std::find(states.begin(), states.end(), session.atom("_NET_WM_STATE_SHADED")) != states.end();
}

}  // namespace

xcb_window_t activeWindow(X11Session &session) {
    const xcb_atom_t check = session.atom("_NET_SUPPORTING_WM_CHECK");
    const auto askedActive = session.askProperty(session.root(), session.atom("_NET_ACTIVE_WINDOW"));
    const auto askedManaged = session.askProperty(session.root(), session.atom("_NET_CLIENT_LIST"));
    const auto askedCheck = session.askProperty(session.root(), check);
    // Some window managers write a second value; openbox may leave the id of a window that is gone.
    const xcb_window_t active = first(session.values32(askedActive));
    const auto managed = session.values32(askedManaged);
    const xcb_window_t manager = first(session.values32(askedCheck));
    if (std::find(managed.begin(), managed.end(), active) == managed.end())
        return XCB_NONE;
    // A window manager that was killed leaves its properties on the root, but not its own window.
    if (manager == XCB_NONE || first(session.property32(manager, check)) != manager)
        return XCB_NONE;
    return session.isMapped(active) || isShaded(session, active) ? active : xcb_window_t(XCB_NONE);
}

X11ActiveWindow::X11ActiveWindow(X11Session &session) : session_(session) {
    session_.select(session_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
    watch();
    announced_ = current();
}

X11ActiveWindow::~X11ActiveWindow() = default;

void X11ActiveWindow::watch() {
    named_ = first(session_.property32(session_.root(), session_.atom("_NET_ACTIVE_WINDOW")));
    managerCheck_ = first(session_.property32(session_.root(), session_.atom("_NET_SUPPORTING_WM_CHECK")));
    for (const xcb_window_t window : {named_, managerCheck_})
        if (window != XCB_NONE)
            session_.select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
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
    watch();
    const xcb_window_t active = current();
    if (active == announced_)
        return;
    announced_ = active;
    emit changed(active);
}

}  // namespace pimloft
