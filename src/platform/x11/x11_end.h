// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace pimloft {

class X11Session;

/// Ends the program in order when its X server goes, as it does at the end of many logins. Qt would end it
/// from within the event loop, with a complaint, before anything is stopped or saved. One at a time; main
/// thread.
class X11End {
public:
    /// `save` is called at most once, and the program is over when it returns.
    X11End(X11Session &session, std::function<void()> save);
    ~X11End();
    X11End(const X11End &) = delete;
    X11End &operator=(const X11End &) = delete;

private:
    void leave();

    X11Session &session_;
    std::function<void()> save_;
};

}  // namespace pimloft
