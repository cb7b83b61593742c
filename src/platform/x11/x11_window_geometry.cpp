// SPDX-License-Identifier: MIT
#include "platform/x11/x11_window_geometry.h"

#include "platform/x11/x11_session.h"

namespace pimloft {

namespace {

/// Left, right, top, bottom, as both properties list them; nothing unless all four are there.
std::optional<QMargins> margins(const std::vector<std::uint32_t> &values) {
    if (values.size() != 4)
        return std::nullopt;
    return QMargins(int(values[0]), int(values[2]), int(values[1]), int(values[3]));
}

}  // namespace

std::optional<X11WindowGeometry> readGeometry(X11Session &session, xcb_window_t window) {
    xcb_connection_t *connection = session.connection();
    const auto sizeCookie = xcb_get_geometry(connection, window);
    const auto originCookie = xcb_translate_coordinates(connection, window, session.root(), 0, 0);
    const auto shadowCookie = session.askProperty(window, session.atom("_GTK_FRAME_EXTENTS"));
    const auto frameCookie = session.askProperty(window, session.atom("_NET_FRAME_EXTENTS"));
    const auto parentCookie = xcb_query_tree(connection, window);
    const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(connection, sizeCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection, originCookie, nullptr));
    const auto shadow = margins(session.values32(shadowCookie));
    const auto frame = margins(session.values32(frameCookie));
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(connection, parentCookie, nullptr));
    if (!size || !origin || !tree)
        return std::nullopt;

    X11WindowGeometry geometry;
    geometry.client = QRect(origin->dst_x, origin->dst_y, size->width, size->height);
    // A program that draws its own decorations has none of the window manager's.
    if (shadow && !shadow->isNull())
        geometry.extents = -*shadow;
    // A window manager that ended leaves the property behind on windows that have no frame any more.
    else if (frame && tree->parent != session.root())
        geometry.extents = *frame;
    return geometry;
}

}  // namespace pimloft
