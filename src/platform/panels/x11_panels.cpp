// SPDX-License-Identifier: MIT
#include "platform/panels/x11_panels.h"

#include "platform/panels/x11_overlay.h"
#include "platform/panels/x11_popup.h"

#include <QGuiApplication>

#include <algorithm>

namespace pimloft {

X11Panels::X11Panels(const Desktop &desktop, std::chrono::milliseconds idle)
    : desktop_(desktop), idle_(idle) {
    connect(&desktop.compositor, &X11Compositor::changed, this, [this] {
        for (X11Panel *panel : panels_)
            panel->applyBlending();
    });
    qGuiApp->installNativeEventFilter(this);
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

/// Keeps from Qt that a window came up which it has taken down again since. It would believe that to be the
/// window's state, and complain when it shows it anew.
bool X11Panels::nativeEventFilter(const QByteArray &, void *message, qintptr *) {
    const auto &event = *static_cast<const xcb_generic_event_t *>(message);
    if (X11Session::type(event) != XCB_MAP_NOTIFY)
        return false;
    const xcb_window_t window = reinterpret_cast<const xcb_map_notify_event_t &>(event).window;
    return std::any_of(panels_.begin(), panels_.end(), [window](const X11Panel *panel) {
        return panel->id() == window && !panel->isShown();
    });
}

}  // namespace pimloft
