// SPDX-License-Identifier: MIT
#include "platform/x11/xinput_version.h"

#include "platform/x11/xcb_extension.h"
#include "platform/x11/xcb_reply.h"

#include <xcb/xinput.h>

#include <cstdint>
#include <string_view>

namespace pimloft {

std::optional<XInputVersion> xinputVersion(xcb_connection_t *connection) {
    if (!hasExtension(connection, &xcb_input_id))
        return std::nullopt;
    constexpr std::string_view name = "XInputExtension";
    const auto cookie = xcb_input_get_extension_version(connection, std::uint16_t(name.size()), name.data());
    const XcbReply<xcb_input_get_extension_version_reply_t> reply(
        xcb_input_get_extension_version_reply(connection, cookie, nullptr));
    return reply ? std::optional(XInputVersion{reply->server_major, reply->server_minor}) : std::nullopt;
}

}  // namespace pimloft
