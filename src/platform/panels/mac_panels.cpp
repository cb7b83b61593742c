// SPDX-License-Identifier: MIT
#include "platform/panels/mac_panels.h"

#include "platform/appearance/appearance.h"
#include "platform/panels/mac_panel.h"
#include "platform/panels/mac_popup.h"

namespace pimloft {

MacPanels::MacPanels(const AppearanceService &appearance, std::chrono::milliseconds idle, ViewOf viewOf)
    : appearance_(appearance), idle_(idle), viewOf_(std::move(viewOf)) {
}

std::unique_ptr<Panel> MacPanels::create(PanelKind kind, std::unique_ptr<QWindow> content) {
    content->setFlags(Qt::Window | Qt::FramelessWindowHint);
    content->setFlag(Qt::WindowDoesNotAcceptFocus, kind == PanelKind::overlay);
    content->setFlag(Qt::WindowTransparentForInput, kind == PanelKind::overlay);
    QSurfaceFormat format = content->format();
    format.setAlphaBufferSize(8);
    content->setFormat(format);
    const std::uintptr_t view = viewOf_(*content);
    if (kind == PanelKind::overlay)
        return std::make_unique<MacOverlay>(std::move(content), view);
    return std::make_unique<MacPopup>(*this, std::move(content), view);
}

bool MacPanels::reducesMotion() const {
    return appearance_.reducesMotion();
}

void MacPanels::endTyping() {
    if (typing_)
        typing_->releaseTyping();
}

std::uintptr_t MacPanels::nativeView(QWindow &window) {
    return std::uintptr_t(window.winId());
}

}  // namespace pimloft
