// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/selection_content.h"
#include "platform/x11/selection_link.h"

#include <chrono>
#include <list>
#include <memory>

namespace pimloft {

/// What this program owns a selection with.
struct HeldSelection {
    std::shared_ptr<const SelectionContent> content;
    std::optional<xcb_timestamp_t> since = {};  ///< nothing until the server has told
    std::optional<ProcessId> origin = {};       ///< who copied it, where that was another program
};

/// Answers what other programs ask of the selections that this one owns: at once what is small, the rest in
/// pieces as fast as the other program takes them. Confined to the selection's thread; waits for nobody but
/// the X server.
class SelectionSender {
public:
    using Time = std::chrono::steady_clock::time_point;

    explicit SelectionSender(SelectionLink &link);

    /// Refuses everything where `held` has no content.
    void answer(const xcb_selection_request_event_t &request, const HeldSelection &held, Time now);

    void propertyChanged(const xcb_property_notify_event_t &event, Time now);
    /// A window does not exist any more.
    void gone(xcb_window_t window);

    /// Gives up programs that take nothing any more.
    void expire(Time now);
    /// When that has to be looked at next; nothing while nobody takes anything.
    std::optional<Time> deadline() const;

private:
    struct Transfer {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        QByteArray bytes;
        qsizetype sent;
        Time last;  ///< when the other program took a piece
    };
    using Transfers = std::list<Transfer>;

    bool put(const xcb_selection_request_event_t &request, const HeldSelection &held, Time now);
    bool putMultiple(const xcb_selection_request_event_t &request, const HeldSelection &held, Time now);
    void putTargets(const xcb_selection_request_event_t &request, const HeldSelection &held);
    bool putBytes(const xcb_selection_request_event_t &request, const SelectionForm &form, Time now);
    void putValues(const xcb_selection_request_event_t &request, xcb_atom_t type,
                   const std::vector<std::uint32_t> &values);
    Transfers::iterator erase(Transfers::iterator transfer);

    SelectionLink &link_;
    const xcb_atom_t targets_, timestamp_, multiple_, saveTargets_, incremental_, pair_, nothing_;
    const qsizetype piece_;  ///< what is sent at once, in bytes
    Transfers transfers_;
};

}  // namespace pimloft
