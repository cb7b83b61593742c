// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"
#include "platform/x11/x11_session.h"

#include <QByteArray>

#include <optional>
#include <unordered_map>

namespace pimloft {

/// A connection of its own to the X server, by which one thread takes part in selections. `connection`,
/// `window` and `owner` may be used by any thread, everything else by that one. Where there is no server, or
/// no more, every answer is empty.
class SelectionLink {
public:
    /// Connects to $DISPLAY.
    SelectionLink();
    ~SelectionLink();
    SelectionLink(const SelectionLink &) = delete;
    SelectionLink &operator=(const SelectionLink &) = delete;

    xcb_connection_t *connection() const { return connection_; }
    bool isConnected() const { return !xcb_connection_has_error(connection_); }
    /// The window that owns selections.
    xcb_window_t window() const { return window_; }

    /// Asks the server to tell of every change of a selection's owner.
    void watchOwner(xcb_atom_t selection);
    /// Whether it does.
    bool tellsOwner() const { return ownerNotice_ != 0; }
    /// The type of the event that tells of it.
    int ownerNotice() const { return ownerNotice_; }

    xcb_atom_t atom(const QByteArray &name);
    /// The names of atoms; empty for what is none. Takes one round trip.
    std::vector<QByteArray> names(const std::vector<xcb_atom_t> &atoms);
    /// The text type of X11 that an atom stands for; empty for any other atom.
    QByteArray textType(xcb_atom_t atom);

    /// A window that nobody sees and whose properties are watched.
    xcb_window_t makeWindow();
    /// Whether this connection made the window.
    bool made(xcb_window_t window) const;

    /// What one request may carry, in bytes.
    qsizetype largestRequest() const;

    xcb_window_t owner(xcb_atom_t selection);
    /// The process behind a window, where it runs on this computer and the server tells.
    std::optional<ProcessId> process(xcb_window_t window);

    /// A property's value.
    struct Value {
        xcb_atom_t type = XCB_NONE;  ///< none where there is no such property
        int format = 0;              ///< bits per unit
        QByteArray bytes;
        bool isCut = false;  ///< it is longer than was wanted, and still there

        /// The units of a list of 32-bit values; none of anything else.
        std::vector<std::uint32_t> values() const;
    };
    /// The type of a property; none where there is no such property.
    xcb_atom_t type(xcb_window_t window, xcb_atom_t property);
    /// Reads a property in pieces and removes it. Above `cap` bytes nothing is read.
    Value take(xcb_window_t window, xcb_atom_t property, qsizetype cap);

private:
    xcb_connection_t *connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_window_t window_ = XCB_NONE;
    int ownerNotice_ = 0;
    std::unordered_map<std::string, xcb_atom_t> atoms_;
};

}  // namespace pimloft
