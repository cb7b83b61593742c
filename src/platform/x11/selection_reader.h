// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/selection_content.h"
#include "platform/x11/selection_link.h"

#include <deque>
#include <functional>
#include <list>

namespace pimloft {

/// Asks the program that owns a selection for what it offers. Confined to the selection's thread; waits for
/// nobody but the X server.
class SelectionReader {
public:
    using Answered = std::function<void(std::uint64_t id, SelectionAnswer)>;

    /// `answered` is called once for every question that is not abandoned.
    SelectionReader(SelectionLink &link, xcb_atom_t selection, Answered answered);

    /// Who owns it from now on, if anybody, and since when. What is under way is answered as superseded.
    void ownerIs(xcb_window_t owner, xcb_timestamp_t since);
    /// The owner has ended, and nobody came after it. Questions fail from now on.
    void ownerIsGone();

    void ask(SelectionQuery query);
    void abandon(std::uint64_t id);
    /// Whether nothing is being asked.
    bool isIdle() const { return talks_.empty(); }

    /// XCB_NONE where nobody owns it any more.
    xcb_window_t owner() const { return isOwnerGone_ ? xcb_window_t(XCB_NONE) : owner_; }

    void notified(const xcb_selection_notify_event_t &event);
    void propertyChanged(const xcb_property_notify_event_t &event);

private:
    enum class Step { targets, content, pieces };
    struct Talk {
        SelectionQuery query;
        xcb_window_t window;  ///< where the owner puts its answers
        Step step = Step::targets;
        bool asksTargets = true;  ///< what the pieces are of
        std::size_t wish = 0;
        SelectionLink::Value received = {};
    };
    using Talks = std::list<Talk>;
    /// The window of a talk that was broken off, to which the owner may still answer.
    struct Retired {
        xcb_window_t window;
        int piecesLeft;  ///< that are taken from the owner, so that it comes to an end
    };
    Talks::iterator talkAt(xcb_window_t window);

    void convert(Talk &talk, xcb_atom_t target);
    void takeAnswer(Talks::iterator talk);
    void takePiece(Talks::iterator talk);
    void refused(Talks::iterator talk);
    void complete(Talks::iterator talk);
    void learnTargets(const Talk &talk);
    void tryNextWish(Talks::iterator talk);
    void end(Talks::iterator talk, SelectionAnswer answer);
    void endAll(SelectionAnswer::Status status);
    void retire(const Talk &talk);
    std::deque<Retired>::iterator retiredAt(xcb_window_t window);
    void retiredNotified(const xcb_selection_notify_event_t &event);
    void discardPiece(xcb_window_t window);
    qsizetype cap(const Talk &talk) const;

    SelectionLink &link_;
    const xcb_atom_t selection_;
    const xcb_atom_t property_;
    const xcb_atom_t targets_;
    const xcb_atom_t incremental_;
    Answered answered_;
    xcb_window_t owner_;
    xcb_timestamp_t since_ = XCB_CURRENT_TIME;
    bool isOwnerGone_ = false;
    std::optional<std::vector<xcb_atom_t>> offered_;  ///< by this owner; nothing until it was asked
    Talks talks_;
    std::deque<Retired> retired_;
};

}  // namespace pimloft
