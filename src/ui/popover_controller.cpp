// SPDX-License-Identifier: MIT
#include "ui/popover_controller.h"

#include "app/page.h"
#include "platform/displays/displays.h"
#include "platform/panels/panels.h"
#include "ui/page_view.h"
#include "ui/popover_placement.h"
#include "ui/quick_engine.h"

#include <QQuickItem>

#include <utility>

namespace pimloft {

PopoverController::PopoverController(AppState &appState, AccessibilityManager &accessibility,
                                     QuickEngine &engine, PanelService &panels, DisplayService &displays)
    : appState_(appState), accessibility_(accessibility), engine_(engine), panels_(panels),
      displays_(displays) {
    connect(&engine_, &QuickEngine::viewsHaveToGo, this, [this] {
        close();
        panel_.reset();
        view_ = nullptr;
    });
}

PopoverController::~PopoverController() = default;

void PopoverController::makePanel() {
    auto view = std::make_unique<PageView>(
        engine_, Page{QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/MenuBarPopover.qml")),
                      {{QStringLiteral("controller"), QVariant::fromValue(this)}}});
    view_ = view.get();
    // Whether what is transparent shows through can change while the view exists; that it may has to be said
    // before it has a native window.
    QSurfaceFormat format = view->format();
    format.setAlphaBufferSize(8);
    view->setFormat(format);
    view->setColor(Qt::transparent);
    connect(view_, &PageView::closeKeyPressed, this, &PopoverController::close);
    if (const QQuickItem *content = view_->rootObject()) {
        connect(content, &QQuickItem::implicitHeightChanged, this, &PopoverController::follow);
        connect(content, &QQuickItem::implicitWidthChanged, this, &PopoverController::follow);
    }
    panel_ = panels_.create(PanelKind::popup, std::move(view));
    panel_->onDismiss = [this](Dismissal reason) {
        if (!isOpen_)
            return;
        close();
        if (reason == Dismissal::outsideClick)
            emit dismissedByClick();
    };
}

void PopoverController::open(const QRectF &anchor) {
    if (isOpen_ || displays_.displays().empty())
        return;
    anchor_ = anchor;
    readBlending();
    if (!panel_)
        makePanel();
    isOpen_ = panel_->show(frame());
    if (!isOpen_)
        return;
    engineUse_ = engine_.use();
    if (QQuickItem *content = view_->rootObject()) {
        // The keyboard begins at the top again, not where it was left.
        if (QQuickItem *last = content->scopedFocusItem())
            last->setFocus(false);
        content->forceActiveFocus();
    }
}

void PopoverController::close() {
    if (!std::exchange(isOpen_, false))
        return;
    panel_->orderOut();
    engineUse_.reset();
    emit closed();
}

void PopoverController::openSettings() {
    close();
    emit settingsRequested();
}

void PopoverController::quit() {
    close();
    emit quitRequested();
}

void PopoverController::readBlending() {
    if (std::exchange(blends_, panels_.blends()) != blends_)
        emit blendsChanged();
}

QRectF PopoverController::frame() const {
    const QQuickItem *content = view_->rootObject();
    if (!content)
        return {};
    // The shadow is drawn by the content itself, around what has to be placed.
    const double shadow = content->property("shadow").toDouble();
    const QSizeF size(content->implicitWidth() - 2 * shadow, content->implicitHeight() - 2 * shadow);
    const Display &display = displayAt(anchor_.center(), displays_.displays());
    return popoverFrame(size, anchor_, display).adjusted(-shadow, -shadow, shadow, shadow);
}

void PopoverController::follow() {
    if (isOpen_ && !displays_.displays().empty())
        panel_->setFrame(frame());
}

}  // namespace pimloft
