// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_guard_channel.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <optional>

namespace pimloft {

/// Watches over a program that has the physical keyboards for itself, and takes them back when it dies or
/// does not answer. Sleeps until a key is pressed: then it asks the program for a sign of life, and once more
/// a second later for the keys in between.
class Guard {
public:
    /// `tap` is a window of the connection that holds the keyboards.
    explicit Guard(xcb_window_t tap);
    ~Guard();
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;

    /// Returns what the process ends with, when there is nothing left to guard.
    int run();

private:
    using Instant = std::chrono::steady_clock::time_point;
    enum class State {
        sleeping,  ///< until a key
        due,       ///< a key was pressed; it was asked too recently
        waiting,   ///< for the answer
        resting,   ///< answered
    };

    void listen(bool on);
    bool sawKey();
    void hear();
    void pass();
    void ask();
    void takeBack();
    int millisecondsLeft() const;

    xcb_connection_t *connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_window_t tap_;
    std::uint8_t xinput_ = 0;
    State state_ = State::sleeping;
    bool isLast_ = false;  ///< nothing is to follow this question by itself
    std::optional<Instant> asked_;
    std::optional<Instant> deadline_;  ///< of `due`, `waiting` and `resting`
    bool done_ = false;
};

}  // namespace pimloft
