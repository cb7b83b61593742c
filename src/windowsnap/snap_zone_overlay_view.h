// SPDX-License-Identifier: MIT
#pragma once

#include <QRasterWindow>

class QPainter;

namespace pimloft {

class PanelService;

/// What the overlay shows: a rounded rectangle as large as its window. Main thread.
class SnapZoneOverlayView final : public QRasterWindow {
public:
    explicit SnapZoneOverlayView(const PanelService &panels);

    /// Draws it into a transparent area of `size` points: translucent on a desktop that blends windows, else
    /// an opaque outline with square corners, since nothing more of the window is visible there.
    static void paint(QPainter &painter, QSizeF size, bool blends);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const PanelService &panels_;
};

}  // namespace pimloft
