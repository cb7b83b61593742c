// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <optional>
#include <string>
#include <vector>

namespace pimloft::test {

/// Another program that pastes, as badly as wanted. Waits for what it asks, without the event loop.
class Requestor {
public:
    Requestor();
    ~Requestor();
    Requestor(const Requestor &) = delete;
    Requestor &operator=(const Requestor &) = delete;

    xcb_atom_t atom(const char *name);

    struct Answer {
        xcb_atom_t property = XCB_NONE;  ///< none: it was refused, or not answered within 5 s
        xcb_atom_t type = XCB_NONE;
        QByteArray bytes;
    };
    /// Asks and takes the first property, not what comes in pieces.
    Answer ask(const char *target, const char *selection = "CLIPBOARD", xcb_timestamp_t time = 0);
    /// Asks and takes everything; nothing where it is refused.
    std::optional<QByteArray> paste(const char *target, const char *selection = "CLIPBOARD");
    /// Asks for several forms at once: of each its content, or nothing where it is refused.
    std::vector<std::optional<QByteArray>> pasteAll(const std::vector<const char *> &targets);

    /// Owns a selection, with nothing to offer.
    void own(const char *selection = "CLIPBOARD");
    bool owns(const char *selection);
    /// As the owner of CLIPBOARD_MANAGER: takes the text that it is asked to keep, and says so.
    std::string serveAsManager();

private:
    bool waitFor(std::uint8_t type);
    Answer take(xcb_atom_t property);

    xcb_connection_t *connection_;
    xcb_window_t window_;
    xcb_selection_notify_event_t notice_{};
    xcb_property_notify_event_t change_{};
    xcb_selection_request_event_t request_{};
};

}  // namespace pimloft::test
