// SPDX-License-Identifier: MIT
#pragma once

#include "app/transition.h"

namespace pimloft {

class Panel;
class PanelService;

/// Fades a panel in and out. Where the desktop cannot blend windows, or the user wants no motion, it appears
/// and disappears at once, and the fades take their time all the same. Main thread.
///
/// The panel outlives its fades; destroying this ends a running one without its completion.
class PanelFade {
public:
    static constexpr std::chrono::milliseconds inDuration{150};
    static constexpr std::chrono::milliseconds outDuration{100};

    explicit PanelFade(const PanelService &panels);

    /// From invisible to opaque in 0.15 s. The panel is on screen.
    void in(Panel &panel);
    /// From how the panel looks now to invisible; then `done`, which may destroy it.
    void out(Panel &panel, std::function<void()> done, std::chrono::milliseconds duration = outDuration);
    bool isFadingOut() const { return bool(done_); }

private:
    void run(Panel &panel, double target, std::chrono::milliseconds duration, const QEasingCurve &curve);

    const PanelService &panels_;
    double opacity_ = 1;
    std::function<void()> done_;
    Transition transition_;
};

}  // namespace pimloft
