// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/selection_loan.h"
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
class X11Selection final : private SelectionLoan::Lender {
public:
    /// `answered` is called on the selection's thread, once for every question that is not abandoned.
    explicit X11Selection(SelectionReader::Answered answered);
    /// Hands the content over to a clipboard manager, if there is one; that takes at most 2 s.
    ~X11Selection() override;

    /// Grows with every owner that offers something. Any thread; never waits.
    qint64 changeCount() const { return changeCount_; }

    /// Owns the clipboard. On return other programs see it, and the answer is the count that includes it.
    qint64 offer(SelectionContent content);
    /// Owns the primary selection too, with what is offered, for programs that paste from there. Does nothing
    /// while the clipboard is another program's.
    void offerAsPrimary();

    void ask(SelectionQuery query);
    void abandon(std::uint64_t id);

    /// Lets another program copy for a moment, of which the count knows nothing: the content stays what it
    /// is. Questions are answered afterwards.
    void lend(LoanRequest request);
    /// The program will not copy.
    void nothingComes(std::uint64_t loan);
    /// Ends a loan whatever the program does.
    void giveUpLoan(std::uint64_t loan);

private:
    /// What the two threads share, under the mutex.
    struct Shared {
        HeldSelection clipboard, primary;
        int noticesDue = 0;  ///< of own offers, which the server has not told of yet
        std::vector<SelectionQuery> queries;
        std::vector<std::uint64_t> abandoned;
        std::vector<std::function<void()>> calls;  ///< to be made on the selection's thread
        bool ends = false;
    };
    HeldSelection &held(xcb_atom_t selection);
    bool own(xcb_atom_t selection, HeldSelection content, xcb_timestamp_t time);
    void call(std::function<void()> call);
    void wake();

    void run();
    void rest();
    void handleEvents();
    void handle(const xcb_generic_event_t &event);
    void ownerChanged(const xcb_generic_event_t &event);
    void lost(xcb_atom_t selection);
    void takeRequests();
    void deliver(std::uint64_t id, SelectionAnswer answer);
    void handOver();

    HeldSelection ownContent() override;
    void putBack(HeldSelection content, xcb_timestamp_t since) override;

    SelectionLink link_;
    const xcb_atom_t clipboard_;
    const int wakeUp_;      ///< an eventfd
    std::mutex ownership_;  ///< held while an offer is made or cleared; locked before the other one
    std::mutex mutex_;
    Shared shared_;
    std::atomic<qint64> changeCount_ = 0;

    // The selection's thread only.
    SelectionReader reader_;
    SelectionSender sender_;
    SelectionLoan loan_;
    std::vector<SelectionQuery> heldBack_;  ///< until a loan has ended
    SelectionReader::Answered answered_;
    bool isHandedOver_ = false;
    std::thread thread_;
};

}  // namespace pimloft
