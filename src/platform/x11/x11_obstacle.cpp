// SPDX-License-Identifier: MIT
#include "platform/x11/x11_obstacle.h"

#include "platform/x11/x11_session.h"
#include "platform/x11/xinput_version.h"

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

}  // namespace

X11Obstacle findObstacle(X11Session &session, const QString &sessionType) {
    if (!session.isConnected())
        return X11Obstacle::noServer;
    if (sessionType == QLatin1String("wayland") || isServedByWayland(session))
        return X11Obstacle::wayland;
    if (xinputVersion(session.connection()) < XInputVersion{2, 2})
        return X11Obstacle::noXInput;
    return session.hasExtension(&xcb_test_id) ? X11Obstacle::none : X11Obstacle::noXTest;
}

}  // namespace pimloft
