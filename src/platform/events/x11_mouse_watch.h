// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/x11_displays.h"
#include "platform/events/mouse_watch.h"
#include "platform/x11/x11_raw_input.h"

namespace pimloft {

/// The left button by raw events, which arrive also while another program holds the pointer, as the window
/// manager does when it moves a window. Main thread.
///
/// A mouse sends up to a thousand motions a second, and each would wake the program. So motion is only asked
/// for as a doorbell: while the button is down and the pointer rests. Once it rings, the pointer is looked at
/// every few milliseconds until it rests again. While no button is down, nothing runs.
class X11MouseWatch final : public MouseWatch {
public:
    X11MouseWatch(X11RawInput &input, X11Displays &displays) : input_(input), displays_(displays) {}

    std::unique_ptr<MouseTap> install(std::function<void(const MouseEvent &)> handler) override;
    QPointF location() override;

private:
    X11RawInput &input_;
    X11Displays &displays_;
};

}  // namespace pimloft
