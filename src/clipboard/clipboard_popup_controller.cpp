// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_popup_controller.h"

#include "app/view_host.h"
#include "clipboard/clipboard_engine.h"
#include "clipboard/clipboard_popup.h"
#include "clipboard/clipboard_store.h"
#include "clipboard/popup_placement.h"
#include "platform/displays/displays.h"
#include "platform/events/mouse_watch.h"
#include "platform/panels/panels.h"

#include <QWindow>

namespace pimloft {

namespace {

constexpr QSizeF popupSize(340, 420);

/// Points that the view draws its shadow in, around the popup; nothing where it would hide what is below.
constexpr double shadowWidth = 20;

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
    const double shadow = desktop_.panels.blends() ? shadowWidth : 0;
    popupWindow_ = makePanel(*views, shadow);
    popupWindow_->setOpacity(0);
    const QRectF frame = frameNearCursor(popupSize, pointer, display->visibleFrame);
    if (!popupWindow_->show(frame.adjusted(-shadow, -shadow, shadow, shadow)))
        return close();
    fade_.in(*popupWindow_);
}

void ClipboardPopupController::hide() {
    // A second call leaves the fade that is under way its time.
    if (!isOpen() || fade_.isFadingOut())
        return;
    popupWindow_->releaseTyping();
    fade_.out(*popupWindow_, [this] {
        popupWindow_->orderOut();
        close();
        // What was typed when it began to fade may have come to its view a little later.
        store_.setSearchQuery({});
    });
    store_.setSearchQuery({});
}

std::unique_ptr<Panel> ClipboardPopupController::makePanel(ViewHost &views, double shadow) {
    popup_ = std::make_unique<ClipboardPopup>(store_, store_.thumbnails(), desktop_.workspace, desktop_.clock,
                                              ClipboardPopup::Actions{.onPaste =
                                                                          [this](const ClipboardItem &item) {
                                                                              engine_.writeToPasteboard(item);
                                                                              engine_.simulatePaste();
                                                                          },
                                                                      .onDismiss = [this] { hide(); }});
    auto panel = desktop_.panels.create(
        PanelKind::popup,
        views.makePanelContent({QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Clipboard/ClipboardPopup.qml")),
                                {{QStringLiteral("popup"), QVariant::fromValue<QObject *>(popup_.get())},
                                 {QStringLiteral("shadow"), shadow}}}));
    panel->onDismiss = [this](Dismissal) { hide(); };
    return panel;
}

void ClipboardPopupController::close() {
    popupWindow_.reset();
    popup_.reset();
}

}  // namespace pimloft
