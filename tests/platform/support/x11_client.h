// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>
#include <QString>

#include <xcb/xcb.h>

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

namespace pimloft::test {

/// Another program on the test's display, with windows as odd as wanted, and an eye on every window there.
/// Has a connection of its own and shares no code with what is tested. Native pixels of the root.
class X11Client {
public:
    X11Client();
    ~X11Client();
    X11Client(const X11Client &) = delete;
    X11Client &operator=(const X11Client &) = delete;

    struct Options {
        QRect client = {100, 100, 400, 300};
        QSize minimum = {};
        bool staticGravity = false;
        QMargins shadow = {};        ///< drawn by the program, which then has no other decoration
        const char *type = nullptr;  ///< such as "_NET_WM_WINDOW_TYPE_DOCK"
        std::vector<std::uint32_t> strutPartial = {};
        std::vector<std::uint32_t> strut = {};
    };
    /// Maps a window. Managed windows are there once `isManaged` says so.
    xcb_window_t open(const Options &options);
    xcb_window_t open() { return open(Options()); }
    /// Makes another window with an id that this program used before.
    void reopen(xcb_window_t window) { open(Options(), window); }
    void close(xcb_window_t window);
    void setCardinals(xcb_window_t window, const char *name, const std::vector<std::uint32_t> &values);
    void deleteProperty(xcb_window_t window, const char *name);
    /// Asks for another client rectangle, as a program does for its own window.
    void configure(xcb_window_t window, const QRect &client);

    /// As a task bar asks it of the window manager.
    void activate(xcb_window_t window);
    void iconify(xcb_window_t window);
    enum class Change { remove = 0, add = 1 };
    void changeState(xcb_window_t window, Change change, std::initializer_list<const char *> states);

    bool isManaged(xcb_window_t window);
    bool isActive(xcb_window_t window);
    bool hasState(xcb_window_t window, const char *state);
    std::vector<xcb_window_t> managed();
    /// The managed window whose title begins so, or XCB_NONE.
    xcb_window_t find(const std::string &title);
    /// What the user sees: the outermost frame around the window, less a shadow that the program draws.
    QRect visibleFrame(xcb_window_t window);
    /// With a shadow that the program draws.
    QRect outermostFrame(xcb_window_t window);
    QRect clientRect(xcb_window_t window);

    xcb_window_t root() const { return root_; }

private:
    void open(const Options &options, xcb_window_t window);
    xcb_atom_t atom(const char *name);
    std::vector<std::uint32_t> property(xcb_window_t window, const char *name);
    void send(xcb_window_t window, const char *type, const std::array<std::uint32_t, 5> &data);

    xcb_connection_t *connection_;
    xcb_window_t root_;
};

/// "x,y w x h", for expectations.
std::string text(const QRect &rect);

}  // namespace pimloft::test
