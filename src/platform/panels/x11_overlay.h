// SPDX-License-Identifier: MIT
#pragma once

#include "platform/panels/x11_panel.h"

namespace pimloft {

/// A panel that clicks pass through, above normal windows and below popups. Main thread.
class X11Overlay final : public X11Panel {
public:
    X11Overlay(X11Panels &panels, std::unique_ptr<QWindow> content);

    bool show(const QRectF &frame) override;
    void releaseTyping() override {}
    void orderOut() override;
    PanelKind kind() const override { return PanelKind::overlay; }

private:
    xcb_window_t above() const override;
    void applyShape() override;

    bool isCut_ = false;
};

}  // namespace pimloft
