// SPDX-License-Identifier: MIT
#include "platform/x11/selection_reader.h"

#include <algorithm>

namespace pimloft {

namespace {

/// Nobody offers more forms than this many bytes name.
constexpr qsizetype longestTargets = 1 << 16;

/// So many windows of talks that were broken off are kept for owners that may still answer into them.
constexpr std::size_t mostRetired = 16;

/// So many pieces of what nobody wants any more are still taken.
constexpr int mostDiscarded = 4096;

}  // namespace

SelectionReader::SelectionReader(SelectionLink &link, xcb_atom_t selection, Answered answered)
    : link_(link), selection_(selection), property_(link.atom("PIMLOFT_SELECTION")),
      targets_(link.atom("TARGETS")), incremental_(link.atom("INCR")), answered_(std::move(answered)),
      owner_(link.owner(selection)) {
}

void SelectionReader::ownerIs(xcb_window_t owner, xcb_timestamp_t since) {
    endAll(SelectionAnswer::superseded);
    owner_ = owner;
    since_ = since;
    isOwnerGone_ = false;
    offered_.reset();
}

void SelectionReader::ownerIsGone() {
    endAll(SelectionAnswer::failed);
    isOwnerGone_ = true;
}

void SelectionReader::ask(SelectionQuery query) {
    if (isOwnerGone_) {
        answered_(query.id, {SelectionAnswer::failed});
        return;
    }
    if (!link_.tellsOwner())
        offered_.reset();  // may be somebody else's by now
    talks_.push_back({std::move(query), link_.makeWindow()});
    const auto talk = std::prev(talks_.end());
    if (offered_)
        tryNextWish(talk);
    else
        convert(*talk, targets_);
}

void SelectionReader::abandon(std::uint64_t id) {
    const auto talk =
        std::find_if(talks_.begin(), talks_.end(), [id](const Talk &each) { return each.query.id == id; });
    if (talk == talks_.end())
        return;
    retire(*talk);
    talks_.erase(talk);
}

SelectionReader::Talks::iterator SelectionReader::talkAt(xcb_window_t window) {
    return std::find_if(talks_.begin(), talks_.end(),
                        [window](const Talk &each) { return each.window == window; });
}

void SelectionReader::convert(Talk &talk, xcb_atom_t target) {
    talk.received = {};
    xcb_delete_property(link_.connection(), talk.window, property_);
    xcb_convert_selection(link_.connection(), talk.window, selection_, target, property_, since_);
}

void SelectionReader::notified(const xcb_selection_notify_event_t &event) {
    const auto talk = talkAt(event.requestor);
    if (talk != talks_.end()) {
        if (talk->step == Step::pieces)
            return;
        event.property == XCB_NONE ? refused(talk) : takeAnswer(talk);
        return;
    }
    retiredNotified(event);
}

void SelectionReader::propertyChanged(const xcb_property_notify_event_t &event) {
    if (event.state != XCB_PROPERTY_NEW_VALUE || event.atom != property_)
        return;
    const auto talk = talkAt(event.window);
    if (talk == talks_.end())
        discardPiece(event.window);
    else if (talk->step == Step::pieces)
        takePiece(talk);
}

qsizetype SelectionReader::cap(const Talk &talk) const {
    return talk.asksTargets ? longestTargets : talk.query.cap;
}

void SelectionReader::takeAnswer(Talks::iterator talk) {
    SelectionLink::Value value = link_.take(talk->window, property_, cap(*talk));
    if (value.type == incremental_) {
        // Its value is the least that will come.
        const std::vector<std::uint32_t> announced = value.values();
        talk->step = Step::pieces;
        value.isCut = !announced.empty() && qsizetype(announced.front()) > cap(*talk);
    }
    if (value.isCut) {
        talk->received.isCut = true;
        complete(talk);
    } else if (talk->step != Step::pieces) {
        talk->received = std::move(value);
        complete(talk);
    }
}

void SelectionReader::takePiece(Talks::iterator talk) {
    SelectionLink::Value &received = talk->received;
    const SelectionLink::Value piece =
        link_.take(talk->window, property_, cap(*talk) - received.bytes.size());
    if (piece.type == XCB_NONE)
        return;  // the notice of one that was taken before
    const bool isLast = piece.bytes.isEmpty() && !piece.isCut;
    if (received.type == XCB_NONE) {
        received.type = piece.type;
        received.format = piece.format;
    } else if (!isLast && piece.format != received.format) {
        refused(talk);
        return;
    }
    received.isCut = piece.isCut;
    received.bytes += piece.bytes;
    if (isLast || piece.isCut)
        complete(talk);
}

void SelectionReader::refused(Talks::iterator talk) {
    talk->received = {};
    complete(talk);
}

void SelectionReader::complete(Talks::iterator talk) {
    if (talk->asksTargets) {
        learnTargets(*talk);
        tryNextWish(talk);
        return;
    }
    const SelectionWish &wish = talk->query.wishes[talk->wish - 1];
    const SelectionLink::Value &received = talk->received;
    if (received.isCut) {
        end(talk, {SelectionAnswer::tooLarge, wish.tag});
        return;
    }
    const QByteArray textType = link_.textType(received.type);
    auto understood =
        received.format == 8 ? wish.understand(textType, std::move(talk->received.bytes)) : std::nullopt;
    if (understood)
        end(talk, {SelectionAnswer::present, wish.tag, std::move(*understood), textType});
    else
        tryNextWish(talk);
}

void SelectionReader::learnTargets(const Talk &talk) {
    const SelectionLink::Value &received = talk.received;
    const bool isList = received.format == 32 && !received.isCut &&
                        (received.type == XCB_ATOM_ATOM || received.type == targets_);
    // Programs that know no list of forms are old, and offer text.
    offered_ = isList ? received.values() : std::vector{link_.atom("UTF8_STRING"), link_.atom("STRING")};
}

void SelectionReader::tryNextWish(Talks::iterator talk) {
    if (talk->step == Step::pieces) {
        // More of the old answer may still come, and must not be taken for the next one.
        retire(*talk);
        talk->window = link_.makeWindow();
    }
    talk->asksTargets = false;
    talk->step = Step::content;
    const std::vector<SelectionWish> &wishes = talk->query.wishes;
    while (talk->wish < wishes.size()) {
        const xcb_atom_t target = link_.atom(wishes[talk->wish++].target);
        if (std::find(offered_->begin(), offered_->end(), target) == offered_->end())
            continue;
        convert(*talk, target);
        return;
    }
    end(talk, {SelectionAnswer::absent});
}

void SelectionReader::end(Talks::iterator talk, SelectionAnswer answer) {
    if (talk->step == Step::pieces && answer.status != SelectionAnswer::present)
        retire(*talk);
    else
        xcb_destroy_window(link_.connection(), talk->window);
    const std::uint64_t id = talk->query.id;
    const bool wantsOwner = talk->query.wantsOwner;
    if (talk->query.wantsTargets && offered_)
        answer.targets = link_.names(*offered_);
    talks_.erase(talk);
    if (wantsOwner)
        answer.owner = link_.process(owner_);
    answered_(id, std::move(answer));
}

void SelectionReader::endAll(SelectionAnswer::Status status) {
    Talks talks;
    talks.swap(talks_);
    for (const Talk &talk : talks) {
        retire(talk);
        answered_(talk.query.id, {status});
    }
}

/// A program that answers into a window that is gone may fall over its error, and one whose pieces nobody
/// takes may serve nobody else.
void SelectionReader::retire(const Talk &talk) {
    const bool isInPieces = talk.step == Step::pieces;
    retired_.push_back({talk.window, isInPieces ? mostDiscarded : 0});
    if (isInPieces)
        xcb_delete_property(link_.connection(), talk.window, property_);
    if (retired_.size() <= mostRetired)
        return;
    xcb_destroy_window(link_.connection(), retired_.front().window);
    retired_.pop_front();
}

void SelectionReader::retiredNotified(const xcb_selection_notify_event_t &event) {
    const auto retired = retiredAt(event.requestor);
    if (retired == retired_.end())
        return;
    const bool isInPieces =
        event.property != XCB_NONE && link_.type(event.requestor, property_) == incremental_;
    if (isInPieces) {
        retired->piecesLeft = mostDiscarded;
        xcb_delete_property(link_.connection(), event.requestor, property_);
    } else {
        xcb_destroy_window(link_.connection(), event.requestor);
        retired_.erase(retired);
    }
}

void SelectionReader::discardPiece(xcb_window_t window) {
    const auto retired = retiredAt(window);
    if (retired == retired_.end() || retired->piecesLeft == 0)
        return;
    xcb_delete_property(link_.connection(), window, property_);
    --retired->piecesLeft;
}

std::deque<SelectionReader::Retired>::iterator SelectionReader::retiredAt(xcb_window_t window) {
    return std::find_if(retired_.begin(), retired_.end(),
                        [window](const Retired &each) { return each.window == window; });
}

}  // namespace pimloft
