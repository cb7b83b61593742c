// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/displays.h"
#include "platform/x11/point_space.h"
#include "platform/x11/x11_session.h"

namespace pimloft {

/// The monitors that RandR lists, less the struts that windows reserve on each. Main thread.
class X11Displays final : public DisplayService {
public:
    /// `scale`: native pixels per point.
    X11Displays(X11Session &session, double scale);

    const std::vector<Display> &displays() override;
    std::optional<Display> mainDisplay() override;

    /// For the other X11 services; follows the primary monitor.
    PointSpace pointSpace();

private:
    void read();

    X11Session &session_;
    PointSpace space_;
    std::vector<Display> displays_;
};

}  // namespace pimloft
