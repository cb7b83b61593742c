// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"
#include "support/qt_printers.h"

#include <QRect>
#include <QString>
#include <QStringList>

namespace pimloft::test {

/// Another program's window in front, on a connection of its own, that writes down which keys it gets.
class KeySink {
public:
    /// On return the window is on screen and has the keyboard, from the window manager if there is one.
    /// `windowClass` is what other programs know its program by, if anything.
    explicit KeySink(QRect frame = {50, 50, 300, 200}, const QByteArray &windowClass = {});
    ~KeySink();

    xcb_window_t window() const { return window_; }
    /// Asks the window manager for the keyboard, or takes it where there is none.
    void activate();
    bool isActive();

    /// The key presses since the last call, modifier keys left out: "Control AB04, Super Shift AB03". The
    /// names are those of the positions.
    QString typed();
    /// Every key event in order: "+LCTL +AB04 -AB04 -LCTL".
    QString keys();
    int clicks() const { return clicks_; }

private:
    void handle(const xcb_generic_event_t &event);

    X11Session session_;
    xcb_window_t window_ = XCB_NONE;
    QStringList typed_;
    QStringList keys_;
    int clicks_ = 0;
    bool hasFocus_ = false;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft::test
