// SPDX-License-Identifier: MIT
#include "platform/panels/mac_panel.h"

namespace pimloft {

MacPanel::MacPanel(PanelKind kind, std::unique_ptr<QWindow> content, std::uintptr_t view)
    : content_(std::move(content)), window_(kind, view, [this] { handleLostTyping(); }) {
}

void MacPanel::setFrame(const QRectF &frame) {
    // Before the window, so that no picture of the old size is seen in it.
    content_->setGeometry(QRect(QPoint(0, 0), frame.size().toSize()));
    window_.setFrame({frame.x(), frame.y(), frame.width(), frame.height()});
}

void MacPanel::setOpacity(double opacity) {
    window_.setOpacity(opacity);
}

void MacPanel::open(const QRectF &frame) {
    shown_ = true;
    setFrame(frame);
    content_->show();
    window_.orderFront();
}

void MacPanel::close() {
    if (!shown_)
        return;
    shown_ = false;
    window_.orderOut();
    content_->hide();
}

MacOverlay::MacOverlay(std::unique_ptr<QWindow> content, std::uintptr_t view)
    : MacPanel(PanelKind::overlay, std::move(content), view) {
}

bool MacOverlay::show(const QRectF &frame) {
    open(frame);
    return true;
}

}  // namespace pimloft
