// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"
#include "platform/x11/x11_window_geometry.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace pimloft {

/// The values of a _NET_MOVERESIZE_WINDOW message that brings a window's visible frame to `frame` (native
/// pixels). `isStatic`: the window asks for static gravity; a message with another gravity than the window's
/// own would make a later maximise and restore drift by the size of the frame. Pure.
std::array<std::uint32_t, 5> moveResizeMessage(const QRect &frame, const QMargins &extents, bool isStatic);

/// Brings one window to a frame, however the window manager goes about it. Main thread; never waits.
///
/// The window is told to leave a maximised, fullscreen or shaded state and asked for the frame, again and
/// with its decorations read anew, until it stands there, or has answered two requests alike and so will not
/// come closer. After that it is watched for a moment: a window manager may still be finishing a move of its
/// own, and the frame asked for here is to be the last one. A shadow that is changed after that, as a busy
/// program does, is still made up for as long as nobody else has moved the window.
class X11Placement : public QObject {
    Q_OBJECT

public:
    X11Placement(X11Session &session, xcb_window_t window);
    ~X11Placement() override;

    /// Native pixels of the root. Replaces the frame asked for before.
    void moveTo(const QRect &frame);

    /// Whether the window is still on its way.
    bool isPending() const { return phase_ == Phase::moving; }

signals:
    /// Nothing more will be done: the window has settled, or is gone.
    void ended();

private:
    enum class Phase {
        moving,    ///< asked for the frame
        watching,  ///< settled
        resting,   ///< nothing but a late change of its shadow counts
        ended,
    };

    void handle(const xcb_generic_event_t &event);
    bool isAmong(std::span<const char *const> names, xcb_atom_t property);
    void handleActivity();
    void handleTimeout();
    void begin(const X11WindowGeometry &now);
    void request(const X11WindowGeometry &now);
    void refit();
    void fitToLateExtents();
    void rest(const X11WindowGeometry &now);
    void judge(const X11WindowGeometry &now);
    void settle(const QRect &frame);
    void review(const X11WindowGeometry &now);
    void correct(const X11WindowGeometry &now);
    void finish();

    /// One or two states that are left with one message.
    using StateGroup = std::array<xcb_atom_t, 2>;
    std::vector<StateGroup> heldGroups();
    bool hasStaticGravity();
    bool isButtonDown();

    X11Session &session_;
    const xcb_window_t window_;
    QRect target_;
    Phase phase_ = Phase::ended;
    int requests_ = 0;
    int corrections_ = 0;
    std::optional<QRect> answer_;  ///< to the request before
    bool isAnswered_ = false;      ///< something happened since the first request
    QMargins extents_;             ///< that the last request was made for
    QRect settled_;
    QRect resting_;  ///< the client's rectangle then
    QTimer quiet_;   ///< runs out when the window has been still for a moment
    QTimer limit_;   ///< runs out when a phase has lasted too long
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
