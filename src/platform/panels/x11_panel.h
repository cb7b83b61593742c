// SPDX-License-Identifier: MIT
#pragma once

#include "platform/panels/panels.h"

#include <QObject>
#include <QRect>
#include <QWindow>

#include <xcb/xcb.h>

#include <memory>
#include <vector>

namespace pimloft {

class X11Panels;

/// What both kinds of panel are: a window of Qt's that is placed in native pixels, since Qt's own coordinates
/// do not fit together on several monitors with a scale factor. Main thread.
///
/// Requests go through Qt's connection, so that they keep their order with Qt's own.
class X11Panel : public QObject, public Panel {
public:
    ~X11Panel() override;

    void setFrame(const QRectF &frame) override;
    void setOpacity(double opacity) override;

    /// A compositor came or went.
    void applyBlending();

    virtual PanelKind kind() const = 0;
    bool isShown() const { return shown_; }
    xcb_window_t id() const { return id_; }

protected:
    X11Panel(X11Panels &panels, std::unique_ptr<QWindow> content, Qt::WindowFlags kind);

    void open(const QRectF &frame);
    void close();
    double opacity() const { return opacity_; }
    const QRect &nativeFrame() const { return native_; }
    QWindow &content() { return *content_; }

    /// The window that this panel has to stay under, if any.
    virtual xcb_window_t above() const { return XCB_NONE; }
    /// Cuts the window to what is to be seen where nothing blends windows.
    virtual void applyShape() = 0;

    static xcb_connection_t *connection();
    /// Returns when the server has carried out everything that was asked of it.
    static void roundTrip();
    /// Cuts what is seen, or what takes clicks, to `rectangles`; native pixels of the window.
    void cut(std::uint8_t kind, const std::vector<xcb_rectangle_t> &rectangles);
    void uncut(std::uint8_t kind);

    X11Panels &panels_;

private:
    void place();

    std::unique_ptr<QWindow> content_;
    xcb_window_t id_ = XCB_NONE;
    QRectF frame_;
    QRect native_;
    double opacity_ = 1;
    bool shown_ = false;
};

}  // namespace pimloft
