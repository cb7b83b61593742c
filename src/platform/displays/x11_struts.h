// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/work_area.h"

#include <xcb/xcb.h>

#include <vector>

namespace pimloft {

class X11Session;

/// What managed windows reserve along the root's edges. Main thread.
///
/// Windows that the window manager does not manage reserve nothing: it would lay its own windows under them.
class X11Struts {
public:
    explicit X11Struts(X11Session &session);

    /// Asks every managed window, with two round trips for all of them.
    std::vector<Strut> read(QSize root);

    /// Whether the answer may be another one after this event.
    bool isChangedBy(const xcb_generic_event_t &event);

private:
    X11Session &session_;
    xcb_atom_t clients_;
    xcb_atom_t workArea_;
    xcb_atom_t partial_;
    xcb_atom_t whole_;
};

}  // namespace pimloft
