// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

namespace pimloft {

/// Whether the server has an extension. Waits for its answer the first time. The thread of the connection.
inline bool hasExtension(xcb_connection_t *connection, xcb_extension_t *extension) {
    const xcb_query_extension_reply_t *known = xcb_get_extension_data(connection, extension);
    return known && known->present;
}

}  // namespace pimloft
