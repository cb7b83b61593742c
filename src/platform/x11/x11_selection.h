// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/selection_reader.h"
#include "platform/x11/selection_sender.h"

#include <atomic>
#include <mutex>
#include <thread>

namespace pimloft {

/// Both sides of the clipboard on one connection and one thread of its own: owns it, and asks its owner.
///
/// What the server tells comes in the order in which it happened, so that an own offer is never taken for
/// another program's, nor content of a newer owner for that of an older one. Used from the main thread, which
/// waits for the server at most, never for another program.
class X11Selection {
public:
    /// `answered` is called on the selection's thread, once for every question that is not abandoned.
    explicit X11Selection(SelectionReader::Answered answered);
    /// Hands the content over to a clipboard manager, if there is one; that takes at most 2 s.
    ~X11Selection();

    /// Grows with every owner that offers something. Any thread; never waits.
    qint64 changeCount() const { return changeCount_; }

    /// Owns the clipboard. On return other programs see it, and the answer is the count that includes it.
    qint64 offer(SelectionContent content);
    /// Owns the primary selection too, with what is offered, for programs that paste from there. Does nothing
    /// while the clipboard is another program's.
    void offerAsPrimary();

    void ask(SelectionQuery query);
    void abandon(std::uint64_t id);

private:
    /// What the two threads share, under the mutex.
    struct Shared {
        HeldSelection clipboard, primary;
        int noticesDue = 0;  ///< of own offers, which the server has not told of yet
        int offersOnTheirWay = 0;
        std::vector<SelectionQuery> queries;
        std::vector<std::uint64_t> abandoned;
        bool ends = false;
    };
    HeldSelection &held(xcb_atom_t selection);
    void own(xcb_atom_t selection, std::shared_ptr<const SelectionContent> content);
    void wake();

    void run();
    void rest();
    void handleEvents();
    void handle(const xcb_generic_event_t &event);
    void ownerChanged(const xcb_generic_event_t &event);
    void lost(xcb_atom_t selection);
    void takeRequests();
    void handOver();

    SelectionLink link_;
    const xcb_atom_t clipboard_;
    const int wakeUp_;  ///< an eventfd
    std::mutex mutex_;
    Shared shared_;
    std::atomic<qint64> changeCount_ = 0;

    // The selection's thread only.
    SelectionReader reader_;
    SelectionSender sender_;
    SelectionReader::Answered answered_;
    bool isHandedOver_ = false;
    std::thread thread_;
};

}  // namespace pimloft
