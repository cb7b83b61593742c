// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/tap_state.h"
#include "platform/x11/key_devices.h"
#include "platform/x11/keymap_image.h"
#include "platform/x11/xcb_reply.h"

#include <xcb/xcb.h>

#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace pimloft {

/// The tap's own connection to the X server: it takes the physical keyboards to itself and types on the XTEST
/// keyboard in their place. One thread at a time.
///
/// A keyboard that is taken floats: what changes the keyboards that are in use (a layout, a lock) passes it
/// by and is brought to it from here, so that nothing changes when it is given back.
class TapConnection {
public:
    /// Nothing where the server does not answer or lacks an extension.
    static std::unique_ptr<TapConnection> open();
    ~TapConnection();
    TapConnection(const TapConnection &) = delete;
    TapConnection &operator=(const TapConnection &) = delete;

    xcb_connection_t *connection() const { return connection_; }
    xcb_window_t window() const { return window_; }
    bool isLost() const { return xcb_connection_has_error(connection_); }

    /// Takes every keyboard that the user types on. False when there is none, or another program has one of
    /// them for itself; then none is taken.
    bool grabAll(TapState &state);
    /// Gives them back. What was typed on them until then is still to be read.
    void ungrabAll();

    /// One that came, or came back from another program.
    void grabNew(TapState &state);
    /// One that went.
    void forget(std::uint16_t device) { taken_.erase(device); }

    void carryOut(TapState::Actions actions);

    /// What was read of the server, in the order in which it happened.
    struct Event {
        enum Kind {
            key,
            keyboardCame,
            keyboardWent,  ///< only `physical.source` counts
            mapChanged,
            locksChanged,
        };
        Kind kind;
        TapState::Physical physical{};
    };
    /// Reads without waiting. True when something happened that is for `events`, or for nobody.
    bool read(std::vector<Event> &events);

    /// Brings another layout of the keyboards in use to those that were taken. True when it is another one.
    bool copyMapToTaken();
    /// The same for caps lock, num lock and the group of the layout.
    void copyLocksToTaken();

private:
    TapConnection();
    bool start();
    bool grab(std::uint16_t device);
    void takeMapFrom(const std::vector<KeyDevice> &keyboards);
    void selectLocks(std::uint16_t device);
    void readHierarchy(const xcb_generic_event_t &event, std::vector<Event> &events) const;
    bool isToBeTaken(const KeyDevice &device) const;

    xcb_connection_t *connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_window_t window_ = XCB_NONE;
    std::uint8_t xinput_ = 0;
    std::uint8_t xkb_ = 0;
    std::uint16_t master_ = 0;
    std::uint16_t xtest_ = 0;  ///< where programs press keys
    std::set<std::uint16_t> taken_;
    KeymapImage map_;
};

}  // namespace pimloft
