// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <string>
#include <sys/types.h>

namespace pimloft {

/// The process that gives the keyboard back if this one hangs or dies with the keyboard in its hands. One
/// thread at a time.
class KeyGuard {
public:
    /// `program` is the guard's executable.
    explicit KeyGuard(std::string program) : program_(std::move(program)) {}
    ~KeyGuard() { end(); }
    KeyGuard(const KeyGuard &) = delete;
    KeyGuard &operator=(const KeyGuard &) = delete;

    /// Lets a process watch over the connection that `window` belongs to. False when there can be none.
    bool start(xcb_window_t window);
    /// Nobody watches any more. Idempotent.
    void end();

    /// Becomes readable when the guard asks or is gone; -1 while there is none.
    int channel() const { return channel_; }
    /// Answers what it asked. False when it is gone.
    bool answer();

private:
    std::string program_;
    pid_t process_ = -1;
    int channel_ = -1;
};

}  // namespace pimloft
