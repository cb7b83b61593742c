// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"

#include <QPoint>

#include <functional>
#include <map>
#include <memory>

namespace pimloft {

/// What the devices do, whichever window gets to hear of it. Main thread.
///
/// Where on a device an event happened is told by the device in units of its own, so the pointer is to be
/// asked for. Without XInput 2.2 nothing is ever reported.
class X11RawInput {
public:
    enum Kind : std::uint8_t {
        keyPress = 1 << 0,
        keyRelease = 1 << 1,
        buttonPress = 1 << 2,
        buttonRelease = 1 << 3,
        motion = 1 << 4,
    };
    struct Event {
        Kind kind;
        std::uint32_t detail;  ///< key code, or the button as it is numbered on the device
        xcb_timestamp_t time;
        std::uint32_t request;  ///< our last request that the server had carried out by then

        /// Whether it happened before `mark` was answered by now().
        bool isBefore(std::uint32_t mark) const { return std::int32_t(request - mark) < 0; }
    };
    using Handler = std::function<void(const Event &)>;

    /// Somebody's interest. Kinds that nobody wants are not sent by the server.
    class Watch {
    public:
        Watch(X11RawInput &input, std::uint32_t key) : input_(input), key_(key) {}
        ~Watch();
        Watch(const Watch &) = delete;
        Watch &operator=(const Watch &) = delete;

        /// A set of Kind. Events that are under way may still arrive after their kind was dropped.
        void want(unsigned kinds);

    private:
        X11RawInput &input_;
        std::uint32_t key_;
    };

    explicit X11RawInput(X11Session &session);

    bool isSupported() const { return supported_; }

    /// Wants nothing at first. The handler may destroy its own watch.
    [[nodiscard]] std::unique_ptr<Watch> watch(Handler handler);

    /// Marks this moment in the order of events, at the cost of a round trip: events that happened earlier
    /// may still be under way.
    std::uint32_t now() const;

    struct Pointer {
        QPoint position;        ///< native pixels of the root window
        bool leftIsDown;        ///< the button that acts as the left one, also for a left-handed user
        xcb_window_t toplevel;  ///< the child of the root window that the pointer is over
    };
    /// The pointer as it is now, at the cost of a round trip.
    Pointer pointer() const;

private:
    struct Interest {
        Handler handler;
        unsigned kinds = 0;
    };
    void handle(const xcb_generic_event_t &event);
    void select();

    X11Session &session_;
    bool supported_ = false;
    std::uint8_t opcode_ = 0;
    std::uint32_t selected_ = 0;
    std::map<std::uint32_t, Interest> interests_;
    std::uint32_t nextKey_ = 1;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
