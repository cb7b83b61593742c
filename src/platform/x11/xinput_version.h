// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <optional>

#include <xcb/xcb.h>

namespace pimloft {

/// A version of the XInput extension. A value.
struct XInputVersion {
    int major = 0;
    int minor = 0;

    friend auto operator<=>(const XInputVersion &, const XInputVersion &) = default;
};

/// What the server speaks; nothing where it lacks the extension. Asks in the old way, which leaves open what
/// version this connection will speak. The thread of the connection.
std::optional<XInputVersion> xinputVersion(xcb_connection_t *connection);

}  // namespace pimloft
