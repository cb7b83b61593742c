// SPDX-License-Identifier: MIT
#include "platform/x11/qt_connection.h"

#include <xcb/shm.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <cstdint>

namespace pimloft {

namespace {

constexpr char platform[] = "QT_QPA_PLATFORM";

QByteArrayList &chosen() {
    static QByteArrayList names;
    return names;
}

}  // namespace

void chooseQtConnection() {
    // On a Wayland desktop the program talks to its X server: the native one lets nobody place windows.
    if (!qEnvironmentVariableIsEmpty(platform))
        return;
    qputenv(platform, "xcb");
    chosen() << platform;
}

const QByteArrayList &variablesForQt() {
    return chosen();
}

}  // namespace pimloft

/// Takes the place of libxcb's function of this name for Qt, which is to share memory with the server by
/// identifiers and not, as since version 1.2 of the extension, by file descriptors: these come ahead of the
/// answer that they belong to, and with some hundred events in between libxcb (1.15) takes them for unwanted
/// and gives up the connection.
extern "C" [[gnu::visibility("default")]] xcb_shm_query_version_reply_t *
xcb_shm_query_version_reply(xcb_connection_t *connection, xcb_shm_query_version_cookie_t cookie,
                            xcb_generic_error_t **error) {
    auto *const reply =
        static_cast<xcb_shm_query_version_reply_t *>(xcb_wait_for_reply(connection, cookie.sequence, error));
    constexpr std::uint16_t withIdentifiersOnly = 1;
    if (reply)
        reply->minor_version = std::min(reply->minor_version, withIdentifiersOnly);
    return reply;
}
