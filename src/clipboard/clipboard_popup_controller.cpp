// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_popup_controller.h"

#include "app/view_host.h"
#include "clipboard/popup_placement.h"
#include "platform/displays/displays.h"
#include "platform/events/mouse_watch.h"
#include "platform/panels/panels.h"

#include <QWindow>

namespace pimloft {

namespace {

constexpr QSizeF popupSize(340, 420);

}  // namespace

ClipboardPopupController::ClipboardPopupController(ClipboardStore &store, ClipboardEngine &engine,
                                                   const Desktop &desktop, std::function<ViewHost *()> views)
    : store_(store), engine_(engine), desktop_(desktop), views_(std::move(views)), fade_(desktop.panels) {
}

ClipboardPopupController::~ClipboardPopupController() = default;

void ClipboardPopupController::show() {
    ViewHost *views = views_();
    if (isOpen() || !views)
        return;
    const QPointF pointer = desktop_.mouse.location();
    const auto display = displayUnder(pointer, desktop_.displays.displays(), desktop_.displays.mainDisplay());
    if (!display)
        return;
    auto window = desktop_.panels.create(PanelKind::popup, views->makePanelContent({}));
    window->onDismiss = [this](Dismissal) { hide(); };
    window->setOpacity(0);
    if (!window->show(frameNearCursor(popupSize, pointer, display->visibleFrame)))
        return;
    popupWindow_ = std::move(window);
    fade_.in(*popupWindow_);
}

void ClipboardPopupController::hide() {
    // A second call leaves the fade that is under way its time.
    if (!isOpen() || fade_.isFadingOut())
        return;
    popupWindow_->releaseTyping();
    fade_.out(*popupWindow_, [this] {
        popupWindow_->orderOut();
        popupWindow_.reset();
    });
}

}  // namespace pimloft
