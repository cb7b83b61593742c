// SPDX-License-Identifier: MIT
#include "platform/windows/x11_windows.h"

#include "platform/displays/x11_displays.h"
#include "platform/windows/x11_placement.h"
#include "platform/x11/x11_active_window.h"
#include "platform/x11/x11_window_geometry.h"
#include "platform/x11/x11_window_info.h"

namespace pimloft {

/// The server gives the id of a window that is gone to a later one, so the reference notes its window's end.
struct X11Windows::Window final : WindowElement {
    explicit Window(xcb_window_t window) : id(window) {}

    const xcb_window_t id;
    bool isGone = false;
};

X11Windows::X11Windows(X11Session &session, X11Displays &displays, const QString &sessionType)
    : session_(session), displays_(displays), obstacle_(findObstacle(session, sessionType)) {
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { forget(event); });
}

X11Windows::~X11Windows() = default;

std::optional<WindowReference> X11Windows::focusedWindow() {
    if (!isTrusted())
        return std::nullopt;
    const xcb_window_t active = activeWindow(session_);
    if (active == XCB_NONE || windowType(session_, active) != X11WindowType::application)
        return std::nullopt;
    std::weak_ptr<Window> &known = known_[active];
    auto window = known.lock();
    if (!window) {
        window = std::make_shared<Window>(active);
        known = window;
        session_.select(active, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    return window;
}

std::optional<ProcessId> X11Windows::processId(const WindowReference &window) {
    const xcb_window_t id = resolve(window);
    return id == XCB_NONE ? std::nullopt : windowProcess(session_, id);
}

std::optional<QPointF> X11Windows::position(const WindowReference &window) {
    const auto known = frame(window);
    return known ? std::optional(known->topLeft()) : std::nullopt;
}

std::optional<QSizeF> X11Windows::size(const WindowReference &window) {
    const auto known = frame(window);
    return known ? std::optional(known->size()) : std::nullopt;
}

std::optional<QRectF> X11Windows::frame(const WindowReference &window) {
    const xcb_window_t id = resolve(window);
    if (id == XCB_NONE)
        return std::nullopt;
    const auto journey = journeys_.find(id);
    if (journey != journeys_.end() && journey->second.placement->isPending())
        return journey->second.target;
    const auto geometry = readGeometry(session_, id);
    return geometry ? std::optional(displays_.pointSpace().toAccessibility(geometry->frame())) : std::nullopt;
}

void X11Windows::place(const WindowReference &window, const QRectF &frame) {
    const xcb_window_t id = resolve(window);
    if (id == XCB_NONE)
        return;
    Journey &journey = journeys_[id];
    if (!journey.placement) {
        journey.placement = std::make_unique<X11Placement>(session_, id);
        connect(journey.placement.get(), &X11Placement::ended, this, [this, id] { endJourney(id); });
    }
    journey.target = frame;
    journey.placement->moveTo(displays_.pointSpace().accessibilityToNative(frame));
}

void X11Windows::endJourney(xcb_window_t window) {
    const auto journey = journeys_.find(window);
    if (journey == journeys_.end())
        return;
    // The placement is still at work on the event that ended it.
    journey->second.placement.release()->deleteLater();
    journeys_.erase(journey);
}

void X11Windows::forget(const xcb_generic_event_t &event) {
    const auto known = known_.find(X11Session::goneWindow(event));
    if (known == known_.end())
        return;
    if (const auto window = known->second.lock())
        window->isGone = true;
    known_.erase(known);
}

xcb_window_t X11Windows::resolve(const WindowReference &window) const {
    const auto *known = dynamic_cast<const Window *>(window.get());
    return obstacle_ == X11Obstacle::none && known && !known->isGone ? known->id : xcb_window_t(XCB_NONE);
}

}  // namespace pimloft
