// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/xcb_reply.h"

#include <QByteArray>
#include <QObject>

#include <xcb/xcb.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class QSocketNotifier;

namespace pimloft {

/// The Linux services' own connection to the X server, apart from Qt's. Main thread.
///
/// Errors never end the program: what fails gives an empty answer.
class X11Session : public QObject {
    Q_OBJECT

public:
    /// Connects to $DISPLAY.
    X11Session();
    ~X11Session() override;

    xcb_connection_t *connection() const { return connection_; }
    xcb_window_t root() const { return root_; }
    bool isConnected() const { return !xcb_connection_has_error(connection_); }

    /// Called once, when the event loop finds that the server has gone.
    std::function<void()> onLost;

    /// Requests of an extension that is missing would end the connection: ask before the first one.
    bool hasExtension(xcb_extension_t *extension);

    /// Interned once.
    xcb_atom_t atom(const char *name);

    /// Asks for a property without waiting, so that several travel together; `values32` waits for the answer.
    xcb_get_property_cookie_t askProperty(xcb_window_t window, xcb_atom_t name);
    std::vector<std::uint32_t> values32(xcb_get_property_cookie_t asked);

    /// A property's values in its own format (32 or 8 bits); empty when it or the window is missing.
    std::vector<std::uint32_t> property32(xcb_window_t window, xcb_atom_t name);
    QByteArray property8(xcb_window_t window, xcb_atom_t name);

    bool exists(xcb_window_t window);
    /// Whether a window exists and is shown, unless another one covers it.
    bool isMapped(xcb_window_t window);

    /// Adds to the events that the server reports of a window. Nothing is ever taken away again, so that the
    /// services that share the connection do not end each other's events.
    void select(xcb_window_t window, std::uint32_t eventMask);

    /// Sends a client message for `window` to the window manager.
    void sendToRoot(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5> &data);

    /// Returns when the server has carried out everything that was asked of it.
    void roundTrip();

    /// Every event goes to every handler. The handler stays until its subscription is destroyed.
    using Handler = std::function<void(const xcb_generic_event_t &)>;
    class Subscription {
    public:
        Subscription(X11Session &session, std::uint32_t key) : session_(session), key_(key) {}
        ~Subscription() { session_.handlers_.erase(key_); }
        Subscription(const Subscription &) = delete;
        Subscription &operator=(const Subscription &) = delete;

    private:
        X11Session &session_;
        std::uint32_t key_;
    };
    [[nodiscard]] std::unique_ptr<Subscription> subscribe(Handler handler);

    /// The type of an event without the mark of events that another client sent.
    static int type(const xcb_generic_event_t &event) { return event.response_type & 0x7f; }

    /// The window that an event tells to be gone, or XCB_NONE. Where another program destroyed it before the
    /// server saw it selected, that is told by an error.
    static xcb_window_t goneWindow(const xcb_generic_event_t &event);

private:
    void dispatch(bool readSocket);

    xcb_connection_t *connection_;
    xcb_window_t root_ = XCB_NONE;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::unordered_map<std::string, xcb_atom_t> atoms_;
    std::unordered_map<xcb_window_t, std::uint32_t> masks_;
    std::map<std::uint32_t, Handler> handlers_;
    std::uint32_t nextHandler_ = 1;
};

}  // namespace pimloft
