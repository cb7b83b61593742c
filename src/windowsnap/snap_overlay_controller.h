// SPDX-License-Identifier: MIT
#pragma once

#include "app/panel_fade.h"

#include <QRectF>

#include <memory>

namespace pimloft {

struct Display;
class Panel;
class PanelService;

/// Shows where a dragged window will land. Frames are in desktop points. Main thread.
class SnapOverlayController {
public:
    explicit SnapOverlayController(PanelService &panels);
    ~SnapOverlayController();

    /// Fades the overlay in at `frame`, or lets the one that there is glide to it. One that is fading out
    /// glides too, and goes all the same: the next call makes a new one.
    void show(const QRectF &frame, const Display &display);
    /// Fades it out and destroys it.
    void hide();

    /// None while nothing is on screen; a fading one still counts.
    const Panel *overlayWindow() const { return overlayWindow_.get(); }
    /// The last frame asked for.
    QRectF currentFrame() const { return currentFrame_; }

private:
    void open(const QRectF &frame);
    void glide(const QRectF &frame);

    PanelService &panels_;
    std::unique_ptr<Panel> overlayWindow_;
    QRectF currentFrame_;
    QRectF visibleFrame_;  ///< where a glide has brought it
    Transition glide_;
    PanelFade fade_;
};

}  // namespace pimloft
