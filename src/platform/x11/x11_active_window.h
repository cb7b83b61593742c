// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"

#include <QObject>

#include <xcb/xcb.h>

#include <memory>

namespace pimloft {

/// The window that has the keyboard, as the window manager tells it and the server knows it now. Any managed
/// window counts, docks and the desktop's included; override-redirect windows never do. XCB_NONE while no
/// window is active, without a window manager, and where the one that it names is gone or hidden. Takes two
/// round trips, about 0.1 ms. Main thread.
xcb_window_t activeWindow(X11Session &session);

/// Tells when another window becomes the active one. Main thread.
class X11ActiveWindow : public QObject {
    Q_OBJECT

public:
    explicit X11ActiveWindow(X11Session &session);
    ~X11ActiveWindow() override;

    xcb_window_t current() { return activeWindow(session_); }

signals:
    /// Another window is active, or none (XCB_NONE). Emitted from the event loop.
    void changed(xcb_window_t window);

private:
    void handle(const xcb_generic_event_t &event);
    void announce();
    void watch();

    X11Session &session_;
    xcb_window_t announced_ = XCB_NONE;
    xcb_window_t named_ = XCB_NONE;         ///< by the window manager, perhaps gone or hidden
    xcb_window_t managerCheck_ = XCB_NONE;  ///< lives as long as the window manager
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
