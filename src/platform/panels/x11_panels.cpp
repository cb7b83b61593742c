// SPDX-License-Identifier: MIT
#include "platform/panels/x11_panels.h"

#include "platform/panels/x11_overlay.h"
#include "platform/panels/x11_popup.h"

namespace pimloft {

X11Panels::X11Panels(const Desktop &desktop, std::chrono::milliseconds idle)
    : desktop_(desktop), idle_(idle) {
    connect(&desktop.compositor, &X11Compositor::changed, this, [this] {
        for (X11Panel *panel : panels_)
            panel->applyBlending();
    });
}

X11Panels::~X11Panels() = default;

std::unique_ptr<Panel> X11Panels::create(PanelKind kind, std::unique_ptr<QWindow> content) {
    if (kind == PanelKind::overlay)
        return std::make_unique<X11Overlay>(*this, std::move(content));
    if (!screenLock_)
        screenLock_.emplace();
    return std::make_unique<X11Popup>(*this, std::move(content));
}

void X11Panels::endTyping() {
    if (typing_)
        typing_->releaseTyping();
}

}  // namespace pimloft
