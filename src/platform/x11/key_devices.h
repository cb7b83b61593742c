// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <bitset>
#include <cstdint>
#include <vector>

namespace pimloft {

using KeySet = std::bitset<256>;

/// A keyboard as the server lists it.
struct KeyDevice {
    std::uint16_t id;
    bool typesForPrograms;  ///< the XTEST keyboard, on which programs press keys, and no physical one
    bool floats;            ///< some program has it for itself, or the user put it aside
    std::uint16_t master;   ///< through which it reaches the programs; meaningless while it floats
};

/// The keyboards below the masters. Without XInput 2 there are none. Any thread that owns the connection.
std::vector<KeyDevice> keyDevices(xcb_connection_t *connection);

/// The master keyboard that belongs to the connection's pointer.
std::uint16_t masterKeyboard(xcb_connection_t *connection);

/// What is down on one keyboard, also while it floats; and what is down as the programs see it.
KeySet keysDownOn(xcb_connection_t *connection, std::uint16_t device);
KeySet keysDown(xcb_connection_t *connection);

/// Presses or lets go of a key on the XTEST keyboard. Is not sent at once.
void fakeKey(xcb_connection_t *connection, xcb_keycode_t key, bool down);

/// Returns when the server has carried out everything that was asked of it.
void roundTrip(xcb_connection_t *connection);

}  // namespace pimloft
