// SPDX-License-Identifier: MIT
#pragma once

#include <thread>

struct xcb_connection_t;

namespace pimloft::bench {

/// The least that any program needs to show something when the pointer comes to the left edge: a connection
/// that hears of motion, and a window that is only put on the screen. It covers `size` by `size` pixels at
/// the left edge, at `top`, while the pointer is there. From a thread of its own.
class BareWindow {
public:
    BareWindow(int top, int size);
    ~BareWindow();
    BareWindow(const BareWindow &) = delete;
    BareWindow &operator=(const BareWindow &) = delete;

private:
    void watch();

    xcb_connection_t *connection_;
    unsigned window_;
    unsigned root_;
    std::thread thread_;
};

}  // namespace pimloft::bench
