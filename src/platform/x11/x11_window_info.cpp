// SPDX-License-Identifier: MIT
#include "platform/x11/x11_window_info.h"

#include "platform/x11/client_process.h"
#include "platform/x11/x11_session.h"

#include <array>

namespace pimloft {

namespace {

struct NamedType {
    const char *atom;
    X11WindowType type;
};

/// The types that decide. A list may begin with a desktop's private ones, which say nothing here.
constexpr std::array knownTypes = {
    NamedType{"_NET_WM_WINDOW_TYPE_NORMAL", X11WindowType::application},
    NamedType{"_NET_WM_WINDOW_TYPE_DIALOG", X11WindowType::application},
    NamedType{"_NET_WM_WINDOW_TYPE_UTILITY", X11WindowType::application},
    NamedType{"_NET_WM_WINDOW_TYPE_TOOLBAR", X11WindowType::application},
    NamedType{"_NET_WM_WINDOW_TYPE_MENU", X11WindowType::application},
    NamedType{"_NET_WM_WINDOW_TYPE_SPLASH", X11WindowType::application},
    NamedType{"_NET_WM_WINDOW_TYPE_DESKTOP", X11WindowType::desktop},
    NamedType{"_NET_WM_WINDOW_TYPE_DOCK", X11WindowType::dock},
};

}  // namespace

X11WindowType windowType(X11Session &session, xcb_window_t window) {
    for (const xcb_atom_t listed : session.property32(window, session.atom("_NET_WM_WINDOW_TYPE")))
        for (const NamedType &known : knownTypes)
            if (listed == session.atom(known.atom))
                return known.type;
    return X11WindowType::application;
}

std::optional<ProcessId> windowProcess(X11Session &session, xcb_window_t window) {
    // The server knows whose id it would be, also when there is no such window.
    if (!session.exists(window))
        return std::nullopt;
    if (const auto process = clientProcess(session.connection(), window))
        return process;
    const auto claimed = session.property32(window, session.atom("_NET_WM_PID"));
    return claimed.empty() ? std::nullopt : std::optional(ProcessId(claimed.front()));
}

}  // namespace pimloft
