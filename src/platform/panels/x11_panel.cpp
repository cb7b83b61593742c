// SPDX-License-Identifier: MIT
#include "platform/panels/x11_panel.h"

#include "platform/panels/x11_panels.h"

#include <QGuiApplication>
#include <QPaintDeviceWindow>
#include <QSurfaceFormat>

#include <xcb/shape.h>

namespace pimloft {

X11Panel::X11Panel(X11Panels &panels, std::unique_ptr<QWindow> content, Qt::WindowFlags kind)
    : panels_(panels), content_(std::move(content)) {
    QSurfaceFormat format = content_->format();
    format.setAlphaBufferSize(8);
    content_->setFormat(format);
    content_->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                       Qt::WindowDoesNotAcceptFocus | Qt::X11BypassWindowManagerHint | kind);
    content_->create();
    id_ = xcb_window_t(content_->winId());
    panels_.panels_.push_back(this);
}

X11Panel::~X11Panel() {
    std::erase(panels_.panels_, this);
    content_.reset();
    xcb_flush(connection());
}

void X11Panel::open(const QRectF &frame) {
    frame_ = frame;
    shown_ = true;
    // Qt's first picture is made before it hears of the native size.
    content_->resize(frame.size().toSize());
    place();
    content_->show();
    // Showing sends what Qt believes the place to be.
    place();
}

void X11Panel::close() {
    shown_ = false;
    content_->hide();
    xcb_flush(connection());
}

void X11Panel::setFrame(const QRectF &frame) {
    frame_ = frame;
    place();
}

void X11Panel::setOpacity(double opacity) {
    opacity_ = opacity;
    content_->setOpacity(opacity);
    applyShape();
    xcb_flush(connection());
}

void X11Panel::applyBlending() {
    applyShape();
    xcb_flush(connection());
    // What is painted depends on it as well.
    if (auto *painted = qobject_cast<QPaintDeviceWindow *>(content_.get()))
        painted->update();
    else
        content_->requestUpdate();
}

void X11Panel::place() {
    const QRect before = native_;
    native_ = panels_.desktop_.displays.pointSpace().desktopToNative(frame_);
    // The server knows no empty windows.
    native_.setSize(native_.size().expandedTo(QSize(1, 1)));
    if (native_.size() != before.size())
        applyShape();
    const xcb_window_t sibling = above();
    std::vector<std::uint32_t> values{std::uint32_t(native_.x()), std::uint32_t(native_.y()),
                                      std::uint32_t(native_.width()), std::uint32_t(native_.height())};
    std::uint16_t mask = XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                         XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE;
    if (sibling != XCB_NONE) {
        mask |= XCB_CONFIG_WINDOW_SIBLING;
        values.push_back(sibling);
    }
    values.push_back(sibling == XCB_NONE ? XCB_STACK_MODE_ABOVE : XCB_STACK_MODE_BELOW);
    xcb_configure_window(connection(), id_, mask, values.data());
    xcb_flush(connection());
}

xcb_connection_t *X11Panel::connection() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

void X11Panel::roundTrip() {
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
}

void X11Panel::cut(std::uint8_t kind, const std::vector<xcb_rectangle_t> &rectangles) {
    xcb_shape_rectangles(connection(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, id_, 0, 0,
                         std::uint32_t(rectangles.size()), rectangles.data());
}

void X11Panel::uncut(std::uint8_t kind) {
    xcb_shape_mask(connection(), XCB_SHAPE_SO_SET, kind, id_, 0, 0, XCB_NONE);
}

}  // namespace pimloft
