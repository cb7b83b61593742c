// SPDX-License-Identifier: MIT
#include "platform/x11/selection_loan.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// Content that is larger, or that takes longer to be read, is not risked.
constexpr qsizetype largestKept = 64 << 20;
constexpr auto longestKeeping = 300ms;

/// A program that was stuck may still copy so long after it was given up.
constexpr auto longestLateness = 10s;

/// A program that copies may do so in several steps, each of which makes it the owner anew.
constexpr int mostAttempts = 4;

/// No question of anybody else has such a number.
constexpr std::uint64_t firstQuestion = std::uint64_t(1) << 62;

/// Targets that are no content: they tell about it, or make the owner do something.
constexpr std::array notContent = {"TARGETS", "MULTIPLE",         "TIMESTAMP",       "SAVE_TARGETS",
                                   "DELETE",  "INSERT_SELECTION", "INSERT_PROPERTY", ""};

/// Programs convert their pictures into a dozen formats, and whoever pastes pictures understands this one.
constexpr char picture[] = "image/png";
constexpr std::array otherPictures = {"image/", "application/ico", "text/ico"};

std::optional<QByteArray> asItIs(const QByteArray &, QByteArray bytes) {
    return bytes;
}

bool isOtherPicture(const QByteArray &target) {
    return target != picture && std::any_of(otherPictures.begin(), otherPictures.end(),
                                            [&](const char *kind) { return target.startsWith(kind); });
}

std::vector<QByteArray> contentTargets(const std::vector<QByteArray> &offered) {
    const bool hasPicture = std::find(offered.begin(), offered.end(), picture) != offered.end();
    std::vector<QByteArray> result;
    for (const QByteArray &target : offered) {
        const bool isContent = std::none_of(notContent.begin(), notContent.end(),
                                            [&](const char *name) { return target == name; });
        const bool isNew = std::find(result.begin(), result.end(), target) == result.end();
        if (isContent && isNew && !(hasPicture && isOtherPicture(target)))
            result.push_back(target);
    }
    return result;
}

bool isSameClient(xcb_connection_t *connection, xcb_window_t one, xcb_window_t other) {
    const std::uint32_t withinClient = xcb_get_setup(connection)->resource_id_mask;
    return (one & ~withinClient) == (other & ~withinClient);
}

}  // namespace

SelectionLoan::SelectionLoan(SelectionLink &link, SelectionReader &reader, Lender &lender)
    : link_(link), reader_(reader), lender_(lender), lastQuestion_(firstQuestion) {
}

void SelectionLoan::begin(LoanRequest request, Time now) {
    close();
    request_ = std::move(request);
    forms_ = std::make_shared<SelectionContent>();
    content_ = {};
    size_ = 0;
    attempts_ = 0;
    borrowedSince_ = XCB_CURRENT_TIME;
    deadline_ = now + longestKeeping;
    state_ = State::waiting;
    if (!link_.isConnected() || !link_.tellsOwner())
        end({LoanResult::refused});
    else
        proceed(now);
}

void SelectionLoan::proceed(Time now) {
    if (state_ == State::waiting && reader_.isIdle()) {
        content_ = lender_.ownContent();
        if (content_.content || reader_.owner() == XCB_NONE) {
            lend();
            return;
        }
        state_ = State::listing;
        SelectionQuery query;
        query.wantsOwner = true;
        query.wantsTargets = true;
        ask(std::move(query));
    }
    if (now < deadline_)
        return;
    if (state_ == State::waiting || state_ == State::listing || state_ == State::keeping)
        end({LoanResult::refused});
    else if (state_ == State::late)
        state_ = State::none;
}

std::optional<SelectionLoan::Time> SelectionLoan::deadline() const {
    const bool isWaited = state_ != State::none && state_ != State::lent && state_ != State::taking;
    return isWaited ? std::optional(deadline_) : std::nullopt;
}

/// The answer may come at once.
void SelectionLoan::ask(SelectionQuery query) {
    query.id = ++lastQuestion_;
    questions_.emplace(query.id, QByteArray());
    reader_.ask(std::move(query));
}

bool SelectionLoan::answered(std::uint64_t id, SelectionAnswer &answer) {
    if (id < firstQuestion)
        return false;
    if (!questions_.contains(id))
        return true;
    if (state_ == State::listing) {
        questions_.erase(id);
        content_.origin = answer.owner;
        if (answer.status == SelectionAnswer::absent)
            keep(answer.targets);
        else
            end({LoanResult::refused});
    } else if (state_ == State::keeping) {
        kept(id, answer);
    } else if (state_ == State::taking) {
        questions_.erase(id);
        // Superseded: it has copied once more, and is asked again when the reader has heard of that.
        if (answer.status == SelectionAnswer::superseded)
            return true;
        restore();
        end({LoanResult::copied, std::move(answer)});
    }
    return true;
}

void SelectionLoan::keep(const std::vector<QByteArray> &targets) {
    state_ = State::keeping;
    for (const QByteArray &target : contentTargets(targets))
        questions_.emplace(++lastQuestion_, target);
    if (questions_.empty()) {
        lend();
        return;
    }
    for (const auto &[id, target] : std::map(questions_)) {
        SelectionQuery query;
        query.id = id;
        query.wishes = {{target, 0, asItIs}};
        query.cap = largestKept;
        if (questions_.contains(id))
            reader_.ask(std::move(query));
    }
}

void SelectionLoan::kept(std::uint64_t question, SelectionAnswer &answer) {
    const QByteArray target = questions_.extract(question).mapped();
    size_ += answer.bytes.size();
    const bool isOver = answer.status == SelectionAnswer::superseded || size_ > largestKept ||
                        answer.status == SelectionAnswer::tooLarge ||
                        answer.status == SelectionAnswer::failed;
    if (isOver) {
        end({LoanResult::refused});
        return;
    }
    if (answer.status == SelectionAnswer::present)
        forms_->push_back({target, answer.textType.isEmpty() ? target : answer.textType,
                           [bytes = std::move(answer.bytes)] { return bytes; }});
    if (!questions_.empty())
        return;
    // An owner that answers nothing of what it offers may do so later.
    if (forms_->empty())
        end({LoanResult::refused});
    else
        lend();
}

void SelectionLoan::lend() {
    if (!content_.content)
        content_.content = forms_;
    content_.since.reset();
    state_ = State::lent;
    request_.onKept();
}

bool SelectionLoan::expects(xcb_window_t owner) const {
    const bool mayCopy = state_ == State::lent || state_ == State::taking || state_ == State::late;
    return mayCopy && owner != XCB_NONE && isSameClient(link_.connection(), owner, request_.borrower);
}

void SelectionLoan::ownerIs(xcb_window_t owner, xcb_timestamp_t since) {
    if (state_ == State::none)
        return;
    if (!expects(owner)) {
        end({isOpen() && state_ != State::lent && state_ != State::taking ? LoanResult::refused
                                                                          : LoanResult::lost});
        return;
    }
    borrowedSince_ = since;
    if (state_ == State::late) {
        restore();
        state_ = State::none;
        return;
    }
    take();
}

void SelectionLoan::take() {
    state_ = State::taking;
    if (++attempts_ > mostAttempts) {
        restore();
        end({LoanResult::copied, {SelectionAnswer::failed}});
        return;
    }
    SelectionQuery query;
    query.wishes = request_.wishes;
    query.cap = request_.cap;
    ask(std::move(query));
}

void SelectionLoan::nothingComes(std::uint64_t id) {
    if (id != request_.id)
        return;
    if (state_ == State::lent)
        end({LoanResult::untouched});
    else if (state_ == State::late)
        state_ = State::none;
}

void SelectionLoan::giveUp(std::uint64_t id, Time now) {
    if (id != request_.id || !isOpen())
        return;
    const bool mayStillCopy = state_ == State::lent;
    if (state_ == State::taking)
        restore();
    end({mayStillCopy ? LoanResult::untouched : LoanResult::refused});
    if (!mayStillCopy)
        return;
    state_ = State::late;
    deadline_ = now + longestLateness;
}

void SelectionLoan::close() {
    if (isOpen())
        giveUp(request_.id, {});
    state_ = State::none;
}

void SelectionLoan::restore() {
    lender_.putBack(content_, borrowedSince_);
}

void SelectionLoan::end(LoanResult result) {
    const bool wasOpen = isOpen();
    state_ = State::none;
    for (const auto &question : std::exchange(questions_, {}))
        reader_.abandon(question.first);
    if (!wasOpen)
        return;
    request_.onEnded(std::move(result));
}

}  // namespace pimloft
