// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace pimloft {

/// One keyboard's map of keys, to be put on another keyboard. A value; any thread that owns the connection.
class KeymapImage {
public:
    /// Empty when the server does not answer.
    static KeymapImage read(xcb_connection_t *connection, std::uint16_t device);

    /// Is not sent at once.
    void write(xcb_connection_t *connection, std::uint16_t device) const;

    friend bool operator==(const KeymapImage &, const KeymapImage &) = default;

private:
    /// The request that sets it, but for the device.
    std::vector<std::uint8_t> request_;
};

}  // namespace pimloft
