// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"

#include <QObject>

#include <xcb/xcb.h>

#include <memory>

namespace pimloft {

/// Which window has the keyboard, as the window manager tells it. Main thread.
///
/// Any managed window counts, docks and the desktop's included; override-redirect windows never do.
class X11ActiveWindow : public QObject {
    Q_OBJECT

public:
    explicit X11ActiveWindow(X11Session &session);
    ~X11ActiveWindow() override;

    /// As the server knows it now, for about 0.1 ms. XCB_NONE while no window is active, without a window
    /// manager, and where the one that it names is gone or hidden.
    xcb_window_t current();

signals:
    /// Another window is active, or none (XCB_NONE). Emitted from the event loop.
    void changed(xcb_window_t window);

private:
    void handle(const xcb_generic_event_t &event);
    void announce();
    bool hasWindowManager();

    X11Session &session_;
    xcb_window_t announced_ = XCB_NONE;
    xcb_window_t named_ = XCB_NONE;         ///< by the window manager, last; perhaps gone or hidden
    xcb_window_t managerCheck_ = XCB_NONE;  ///< lives as long as the window manager
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
