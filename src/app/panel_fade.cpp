// SPDX-License-Identifier: MIT
#include "app/panel_fade.h"

#include "platform/panels/panels.h"

#include <cmath>
#include <utility>

namespace pimloft {

PanelFade::PanelFade(const PanelService &panels) : panels_(panels) {
    QObject::connect(&transition_, &QAbstractAnimation::finished, &transition_, [this] {
        if (const auto done = std::exchange(done_, nullptr))
            done();
    });
}

void PanelFade::in(Panel &panel) {
    opacity_ = 0;
    done_ = nullptr;
    run(panel, 1, inDuration, easeOut());
}

void PanelFade::out(Panel &panel, std::function<void()> done, std::chrono::milliseconds duration) {
    done_ = std::move(done);
    run(panel, 0, duration, easeIn());
}

void PanelFade::run(Panel &panel, double target, std::chrono::milliseconds duration,
                    const QEasingCurve &curve) {
    transition_.run(duration, curve, [this, &panel, start = opacity_, target](double progress) {
        opacity_ = std::lerp(start, target, progress);
        panel.setOpacity(panels_.blends() && !panels_.reducesMotion() ? opacity_ : target);
    });
}

}  // namespace pimloft
