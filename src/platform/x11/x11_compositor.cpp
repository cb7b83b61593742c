// SPDX-License-Identifier: MIT
#include "platform/x11/x11_compositor.h"

#include <xcb/xfixes.h>

namespace pimloft {

namespace {

/// A compositor owns the selection of this name and the number of its screen.
std::string selectionName(X11Session &session) {
    int number = 0;
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(session.connection()));
         screen.rem && screen.data->root != session.root(); xcb_screen_next(&screen))
        ++number;
    return "_NET_WM_CM_S" + std::to_string(number);
}

}  // namespace

X11Compositor::X11Compositor(X11Session &session) {
    if (!session.isConnected() || !session.hasExtension(&xcb_xfixes_id))
        return;
    xcb_connection_t *connection = session.connection();
    const xcb_atom_t selection = session.atom(selectionName(session).c_str());
    const XcbReply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(connection, xcb_xfixes_query_version(connection, 2, 0), nullptr));
    if (!version)
        return;
    selectionEvent_ = std::uint8_t(xcb_get_extension_data(connection, &xcb_xfixes_id)->first_event +
                                   XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(connection, session.root(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    // Asked after the watch is on, so that nothing changes in between unseen.
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr));
    running_ = owner && owner->owner != XCB_NONE;
    events_ = session.subscribe([this, selection](const xcb_generic_event_t &event) {
        if (X11Session::type(event) == selectionEvent_ &&
            reinterpret_cast<const xcb_xfixes_selection_notify_event_t &>(event).selection == selection)
            handle(event);
    });
}

void X11Compositor::handle(const xcb_generic_event_t &event) {
    const bool running =
        reinterpret_cast<const xcb_xfixes_selection_notify_event_t &>(event).owner != XCB_NONE;
    if (std::exchange(running_, running) != running)
        emit changed();
}

}  // namespace pimloft
