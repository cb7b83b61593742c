// SPDX-License-Identifier: MIT
#include "windowsnap/snap_overlay_controller.h"

#include "platform/displays/displays.h"
#include "platform/panels/panels.h"
#include "windowsnap/snap_zone_overlay_view.h"

#include <cmath>

namespace pimloft {

namespace {

constexpr std::chrono::milliseconds glideDuration{150};

QRectF between(const QRectF &from, const QRectF &to, double progress) {
    return {std::lerp(from.x(), to.x(), progress), std::lerp(from.y(), to.y(), progress),
            std::lerp(from.width(), to.width(), progress), std::lerp(from.height(), to.height(), progress)};
}

}  // namespace

SnapOverlayController::SnapOverlayController(PanelService &panels) : panels_(panels), fade_(panels) {
}

SnapOverlayController::~SnapOverlayController() = default;

void SnapOverlayController::show(const QRectF &frame, const Display &) {
    if (overlayWindow_)
        glide(frame);
    else
        open(frame);
    currentFrame_ = frame;
}

void SnapOverlayController::hide() {
    // A second call leaves the fade that is under way its time.
    if (!overlayWindow_ || fade_.isFadingOut())
        return;
    fade_.out(*overlayWindow_, [this] {
        glide_.stop();
        overlayWindow_->orderOut();
        overlayWindow_.reset();
    });
}

void SnapOverlayController::open(const QRectF &frame) {
    auto window = panels_.create(PanelKind::overlay, std::make_unique<SnapZoneOverlayView>(panels_));
    window->setOpacity(0);
    if (!window->show(frame))
        return;
    overlayWindow_ = std::move(window);
    visibleFrame_ = frame;
    fade_.in(*overlayWindow_);
}

void SnapOverlayController::glide(const QRectF &frame) {
    glide_.run(glideDuration, easeOut(), [this, from = visibleFrame_, frame](double progress) {
        visibleFrame_ = panels_.reducesMotion() ? frame : between(from, frame, progress);
        overlayWindow_->setFrame(visibleFrame_);
    });
}

}  // namespace pimloft
