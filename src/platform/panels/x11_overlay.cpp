// SPDX-License-Identifier: MIT
#include "platform/panels/x11_overlay.h"

#include "platform/panels/x11_panels.h"

#include <xcb/shape.h>

namespace pimloft {

namespace {

/// The border of a rectangle of `size`, `width` wide.
std::vector<xcb_rectangle_t> border(QSize size, int width) {
    const auto w = std::uint16_t(size.width());
    const auto h = std::uint16_t(size.height());
    if (w <= 2 * width || h <= 2 * width)
        return {{0, 0, w, h}};
    const auto edge = std::uint16_t(width);
    const auto inner = std::uint16_t(h - 2 * width);
    return {{0, 0, w, edge},
            {0, std::int16_t(h - width), w, edge},
            {0, std::int16_t(width), edge, inner},
            {std::int16_t(w - width), std::int16_t(width), edge, inner}};
}

}  // namespace

X11Overlay::X11Overlay(X11Panels &panels, std::unique_ptr<QWindow> content)
    : X11Panel(panels, std::move(content), Qt::WindowTransparentForInput) {
    // A preview on the desktop, not a thing that lies on it: compositors that draw shadows leave it flat.
    static constexpr char name[] = "_COMPTON_SHADOW";
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection(), xcb_intern_atom(connection(), false, sizeof name - 1, name), nullptr));
    const std::uint32_t none = 0;
    if (atom)
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, id(), atom->atom, XCB_ATOM_CARDINAL, 32, 1,
                            &none);
}

bool X11Overlay::show(const QRectF &frame) {
    open(frame);
    return true;
}

void X11Overlay::orderOut() {
    if (isShown())
        close();
}

xcb_window_t X11Overlay::above() const {
    for (const X11Panel *panel : panels_.panels_)
        if (panel->kind() == PanelKind::popup && panel->isShown())
            return panel->id();
    return XCB_NONE;
}

void X11Overlay::applyShape() {
    if (panels_.blends()) {
        if (std::exchange(isCut_, false))
            uncut(XCB_SHAPE_SK_BOUNDING);
        return;
    }
    isCut_ = true;
    const int width = qRound(PanelService::outlineWidth * panels_.desktop_.displays.pointSpace().scale);
    cut(XCB_SHAPE_SK_BOUNDING,
        opacity() > 0 ? border(nativeFrame().size(), width) : std::vector<xcb_rectangle_t>());
}

}  // namespace pimloft
