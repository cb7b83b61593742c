// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/selection_reader.h"
#include "platform/x11/selection_sender.h"

#include <chrono>
#include <map>
#include <memory>

namespace pimloft {

/// What came of lending the clipboard.
struct LoanResult {
    enum Status {
        copied,     ///< `answer` tells what the borrower copied, and the content from before is back
        untouched,  ///< it has copied nothing
        refused,    ///< the content could not be kept safe, so nothing was done
        lost,       ///< somebody else copied meanwhile; that stays
    };
    Status status = refused;
    SelectionAnswer answer = {};
};

/// Another program is made to copy for a moment. The callbacks are called on the selection's thread.
struct LoanRequest {
    std::uint64_t id = 0;
    xcb_window_t borrower = XCB_NONE;         ///< a window of the program that is to copy
    std::vector<SelectionWish> wishes;        ///< for what it copies, the best first
    qsizetype cap = 0;                        ///< bytes of that
    std::function<void()> onKept;             ///< from now on the program may copy
    std::function<void(LoanResult)> onEnded;  ///< once
};

/// Lends the clipboard to another program: keeps what is in it, takes what the program copies, and puts the
/// old content back. Confined to the selection's thread; waits for nobody but the X server.
class SelectionLoan {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// What the owner of both sides of the clipboard does for a loan.
    class Lender {
    public:
        virtual ~Lender() = default;
        /// What this program owns the clipboard with, if it does.
        virtual HeldSelection ownContent() = 0;
        /// Owns the clipboard with `content`, unless somebody has copied after `since`.
        virtual void putBack(HeldSelection content, xcb_timestamp_t since) = 0;
    };

    SelectionLoan(SelectionLink &link, SelectionReader &reader, Lender &lender);

    /// Ends an earlier one.
    void begin(LoanRequest request, Time now);
    /// The program has seen what it was sent, and copies nothing.
    void nothingComes(std::uint64_t id);
    /// Ends it. What the program copies within the next seconds is still taken back from it.
    void giveUp(std::uint64_t id, Time now);
    /// Ends it for good.
    void close();

    /// While it is, what others ask of the clipboard has to wait.
    bool isOpen() const { return state_ != State::none && state_ != State::late; }

    /// Whether an owner that appears now is the borrower's.
    bool expects(xcb_window_t owner) const;
    /// Who owns the clipboard from now on; after the reader has heard of it.
    void ownerIs(xcb_window_t owner, xcb_timestamp_t since);
    /// An answer to a question of the reader. False where the loan has not asked it.
    bool answered(std::uint64_t id, SelectionAnswer &answer);

    /// Goes on where it waits for the reader or for too long.
    void proceed(Time now);
    /// When that has to be looked at next.
    std::optional<Time> deadline() const;

private:
    enum class State { none, waiting, listing, keeping, lent, taking, late };

    void keep(const std::vector<QByteArray> &targets);
    void kept(std::uint64_t question, SelectionAnswer &answer);
    void lend();
    void take();
    void ask(SelectionQuery query);
    void restore();
    void end(LoanResult result);

    SelectionLink &link_;
    SelectionReader &reader_;
    Lender &lender_;
    State state_ = State::none;
    LoanRequest request_;
    HeldSelection content_;                          ///< what is put back
    std::shared_ptr<SelectionContent> forms_;        ///< of it, as they come in
    qsizetype size_ = 0;                             ///< of the forms, in bytes
    std::map<std::uint64_t, QByteArray> questions_;  ///< under way, with the target that is asked for
    std::uint64_t lastQuestion_;
    xcb_timestamp_t borrowedSince_ = XCB_CURRENT_TIME;
    int attempts_ = 0;  ///< to take what was copied
    Time deadline_;
};

}  // namespace pimloft
