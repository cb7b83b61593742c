// SPDX-License-Identifier: MIT
#include "platform/x11/x11_obstacle.h"

#include "platform/x11/x11_session.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <cstring>

namespace pimloft {

namespace {

bool isServedByWayland(X11Session &session) {
    constexpr const char *name = "XWAYLAND";
    const auto cookie = xcb_query_extension(session.connection(), std::uint16_t(std::strlen(name)), name);
    const XcbReply<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(session.connection(), cookie, nullptr));
    return reply && reply->present;
}

/// Asks for the server's version the old way, which leaves open what version this connection will speak.
bool hasXInput(X11Session &session) {
    if (!session.hasExtension(&xcb_input_id))
        return false;
    constexpr const char *name = "XInputExtension";
    const auto cookie =
        xcb_input_get_extension_version(session.connection(), std::uint16_t(std::strlen(name)), name);
    const XcbReply<xcb_input_get_extension_version_reply_t> version(
        xcb_input_get_extension_version_reply(session.connection(), cookie, nullptr));
    return version &&
           (version->server_major > 2 || (version->server_major == 2 && version->server_minor >= 2));
}

}  // namespace

X11Obstacle findObstacle(X11Session &session, const QString &sessionType) {
    if (!session.isConnected())
        return X11Obstacle::noServer;
    if (sessionType == QLatin1String("wayland") || isServedByWayland(session))
        return X11Obstacle::wayland;
    if (!hasXInput(session))
        return X11Obstacle::noXInput;
    return session.hasExtension(&xcb_test_id) ? X11Obstacle::none : X11Obstacle::noXTest;
}

}  // namespace pimloft
