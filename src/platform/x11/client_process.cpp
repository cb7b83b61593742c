// SPDX-License-Identifier: MIT
#include "platform/x11/client_process.h"

#include "platform/x11/xcb_extension.h"
#include "platform/x11/xcb_reply.h"

#include <xcb/res.h>

namespace pimloft {

std::optional<ProcessId> clientProcess(xcb_connection_t *connection, xcb_window_t window) {
    if (!hasExtension(connection, &xcb_res_id))
        return std::nullopt;
    const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto cookie = xcb_res_query_client_ids(connection, 1, &wanted);
    const XcbReply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection, cookie, nullptr));
    if (!reply)
        return std::nullopt;
    for (auto each = xcb_res_query_client_ids_ids_iterator(reply.get()); each.rem;
         xcb_res_client_id_value_next(&each)) {
        const bool isPid = each.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID;
        if (isPid && xcb_res_client_id_value_value_length(each.data) > 0)
            return ProcessId(*xcb_res_client_id_value_value(each.data));
    }
    return std::nullopt;
}

}  // namespace pimloft
