// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"

#include <functional>

namespace pimloft {

/// Asks a window whether it still reads its events. Its answer comes after it has dealt with what was sent
/// to it before. Main thread.
class WindowPing {
public:
    /// On a connection of its own, since answers go to the root window, where all windows' changes would be
    /// told of for as long as the connection lives.
    explicit WindowPing(xcb_window_t window);

    /// `answered` is called from the event loop, once, if ever. Only the last question is waited for.
    void send(std::function<void()> answered);

private:
    void handle(const xcb_generic_event_t &event);

    X11Session session_;
    const xcb_window_t window_;
    std::uint32_t cookie_;
    std::function<void()> answered_;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
