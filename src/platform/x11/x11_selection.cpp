// SPDX-License-Identifier: MIT
#include "platform/x11/x11_selection.h"

#include <xcb/xfixes.h>

#include <array>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace pimloft {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// How long a clipboard manager may take over what it is handed at the end.
constexpr auto longestHandOver = 2s;

int milliseconds(std::optional<Clock::time_point> deadline) {
    if (!deadline)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now());
    return int(std::max(left, 0ms).count());
}

}  // namespace

X11Selection::X11Selection(SelectionReader::Answered answered)
    : clipboard_(link_.atom("CLIPBOARD")), wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      reader_(link_, clipboard_,
              [this](std::uint64_t id, SelectionAnswer answer) { deliver(id, std::move(answer)); }),
      sender_(link_), loan_(link_, reader_, *this), answered_(std::move(answered)) {
    link_.watchOwner(clipboard_);
    thread_ = std::thread([this] { run(); });
}

X11Selection::~X11Selection() {
    {
        const std::lock_guard lock(mutex_);
        shared_.ends = true;
    }
    wake();
    thread_.join();
    close(wakeUp_);
}

void X11Selection::wake() {
    eventfd_write(wakeUp_, 1);
}

HeldSelection &X11Selection::held(xcb_atom_t selection) {
    return selection == clipboard_ ? shared_.clipboard : shared_.primary;
}

qint64 X11Selection::offer(SelectionContent content) {
    qint64 change = 0;
    {
        // From here on other programs' offers are older than this one, whenever the server tells of them.
        const std::lock_guard lock(mutex_);
        shared_.noticesDue += link_.tellsOwner() ? 1 : 0;
        change = ++changeCount_;
    }
    own(clipboard_, {std::make_shared<const SelectionContent>(std::move(content))}, XCB_CURRENT_TIME);
    return change;
}

void X11Selection::offerAsPrimary() {
    std::shared_ptr<const SelectionContent> content;
    {
        const std::lock_guard lock(mutex_);
        content = shared_.clipboard.content;
    }
    if (content)
        own(XCB_ATOM_PRIMARY, {std::move(content)}, XCB_CURRENT_TIME);
}

/// With the server's own time an offer is never refused for being older than another program's.
bool X11Selection::own(xcb_atom_t selection, HeldSelection content, xcb_timestamp_t time) {
    const std::lock_guard ownership(ownership_);
    {
        const std::lock_guard lock(mutex_);
        held(selection) = std::move(content);
    }
    xcb_set_selection_owner(link_.connection(), link_.window(), selection, time);
    const bool isOwned = link_.owner(selection) == link_.window();
    if (!isOwned) {
        const std::lock_guard lock(mutex_);
        held(selection) = {};
    }
    // Events that came with the reply wait in memory, where the thread does not see them.
    wake();
    return isOwned;
}

void X11Selection::ask(SelectionQuery query) {
    {
        const std::lock_guard lock(mutex_);
        shared_.queries.push_back(std::move(query));
    }
    wake();
}

void X11Selection::abandon(std::uint64_t id) {
    {
        const std::lock_guard lock(mutex_);
        shared_.abandoned.push_back(id);
    }
    wake();
}

void X11Selection::call(std::function<void()> call) {
    {
        const std::lock_guard lock(mutex_);
        shared_.calls.push_back(std::move(call));
    }
    wake();
}

void X11Selection::lend(LoanRequest request) {
    call([this, request = std::move(request)]() mutable { loan_.begin(std::move(request), Clock::now()); });
}

void X11Selection::nothingComes(std::uint64_t loan) {
    call([this, loan] { loan_.nothingComes(loan); });
}

void X11Selection::giveUpLoan(std::uint64_t loan) {
    call([this, loan] { loan_.giveUp(loan, Clock::now()); });
}

HeldSelection X11Selection::ownContent() {
    const std::lock_guard lock(mutex_);
    return reader_.owner() == link_.window() ? shared_.clipboard : HeldSelection();
}

void X11Selection::putBack(HeldSelection content, xcb_timestamp_t since) {
    {
        const std::lock_guard lock(mutex_);
        if (shared_.noticesDue > 0)
            return;  // an own offer is newer
        ++shared_.noticesDue;
    }
    if (own(clipboard_, std::move(content), since))
        return;
    const std::lock_guard lock(mutex_);
    --shared_.noticesDue;
}

void X11Selection::run() {
    for (;;) {
        handleEvents();
        takeRequests();
        xcb_flush(link_.connection());
        handleEvents();
        {
            const std::lock_guard lock(mutex_);
            if (shared_.ends)
                break;
        }
        rest();
    }
    loan_.close();
    handOver();
}

void X11Selection::rest() {
    std::array<pollfd, 2> sources{pollfd{wakeUp_, POLLIN, 0},
                                  pollfd{xcb_get_file_descriptor(link_.connection()), POLLIN, 0}};
    // Without the server there are still questions, all of which fail.
    const nfds_t count = link_.isConnected() ? 2 : 1;
    const auto expiry = sender_.deadline(), loanIsDue = loan_.deadline();
    const bool isAnybodyHeldBack = !heldBack_.empty() && !loan_.isOpen();
    poll(sources.data(), count,
         isAnybodyHeldBack
             ? 0
             : milliseconds(expiry && loanIsDue ? std::min(expiry, loanIsDue) : std::max(expiry, loanIsDue)));
    eventfd_t ignored = 0;
    eventfd_read(wakeUp_, &ignored);
    sender_.expire(Clock::now());
    loan_.proceed(Clock::now());
}

void X11Selection::handleEvents() {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(link_.connection())})
        handle(*event);
    xcb_flush(link_.connection());
}

void X11Selection::handle(const xcb_generic_event_t &event) {
    const int type = X11Session::type(event);
    if (link_.tellsOwner() && type == link_.ownerNotice()) {
        ownerChanged(event);
    } else if (type == XCB_SELECTION_REQUEST) {
        const auto &request = reinterpret_cast<const xcb_selection_request_event_t &>(event);
        HeldSelection content;
        {
            const std::lock_guard lock(mutex_);
            content = held(request.selection);
        }
        sender_.answer(request, content, Clock::now());
    } else if (type == XCB_SELECTION_CLEAR) {
        lost(reinterpret_cast<const xcb_selection_clear_event_t &>(event).selection);
    } else if (type == XCB_SELECTION_NOTIFY) {
        const auto &notice = reinterpret_cast<const xcb_selection_notify_event_t &>(event);
        isHandedOver_ |= notice.requestor == link_.window();
        reader_.notified(notice);
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        reader_.propertyChanged(change);
        sender_.propertyChanged(change, Clock::now());
    } else if (const xcb_window_t gone = X11Session::goneWindow(event)) {
        sender_.gone(gone);
    }
}

void X11Selection::ownerChanged(const xcb_generic_event_t &event) {
    const auto &notice = reinterpret_cast<const xcb_xfixes_selection_notify_event_t &>(event);
    if (notice.selection != clipboard_)
        return;
    const bool isOwn = notice.owner == link_.window();
    const bool isOffer = notice.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER;
    const bool isBorrowed = isOffer && loan_.expects(notice.owner);
    {
        const std::lock_guard lock(mutex_);
        if (isOwn) {
            shared_.clipboard.since = notice.selection_timestamp;
            --shared_.noticesDue;
        } else if (isOffer && !isBorrowed && shared_.noticesDue == 0) {
            ++changeCount_;
        }
    }
    if (!isOffer) {
        reader_.ownerIsGone();
        return;
    }
    reader_.ownerIs(notice.owner, notice.selection_timestamp);
    loan_.ownerIs(notice.owner, notice.selection_timestamp);
}

void X11Selection::lost(xcb_atom_t selection) {
    // This may be told of the offer before: what is held is cleared only while no other one is being made.
    const std::lock_guard ownership(ownership_);
    if (link_.owner(selection) == link_.window())
        return;
    const std::lock_guard lock(mutex_);
    held(selection) = {};
}

void X11Selection::takeRequests() {
    std::vector<SelectionQuery> queries;
    std::vector<std::uint64_t> abandoned;
    std::vector<std::function<void()>> calls;
    {
        const std::lock_guard lock(mutex_);
        queries.swap(shared_.queries);
        abandoned.swap(shared_.abandoned);
        calls.swap(shared_.calls);
    }
    // What the questions are about has been told before they were asked, and counts first.
    handleEvents();
    for (const auto &call : calls)
        call();
    heldBack_.insert(heldBack_.end(), std::make_move_iterator(queries.begin()),
                     std::make_move_iterator(queries.end()));
    for (const std::uint64_t id : abandoned) {
        reader_.abandon(id);
        std::erase_if(heldBack_, [id](const SelectionQuery &each) { return each.id == id; });
    }
    if (loan_.isOpen())
        return;
    for (SelectionQuery &query : std::exchange(heldBack_, {})) {
        if (!link_.isConnected())
            answered_(query.id, {SelectionAnswer::failed});
        else if (query.change != changeCount_)
            answered_(query.id, {SelectionAnswer::superseded});
        else
            reader_.ask(std::move(query));
    }
}

void X11Selection::deliver(std::uint64_t id, SelectionAnswer answer) {
    if (loan_.answered(id, answer))
        return;
    if (answer.owner == ProcessId(getpid())) {
        const std::lock_guard lock(mutex_);
        if (shared_.clipboard.origin)
            answer.owner = shared_.clipboard.origin;
    }
    answered_(id, std::move(answer));
}

void X11Selection::handOver() {
    const xcb_atom_t manager = link_.atom("CLIPBOARD_MANAGER");
    HeldSelection content;
    {
        const std::lock_guard lock(mutex_);
        content = shared_.clipboard;
    }
    if (!content.content || content.content->empty() || !link_.owner(manager))
        return;
    std::vector<xcb_atom_t> targets;
    for (const SelectionForm &form : *content.content)
        targets.push_back(link_.atom(form.target));
    const xcb_atom_t property = link_.atom("PIMLOFT_SELECTION");
    xcb_change_property(link_.connection(), XCB_PROP_MODE_REPLACE, link_.window(), property, XCB_ATOM_ATOM,
                        32, std::uint32_t(targets.size()), targets.data());
    xcb_convert_selection(link_.connection(), link_.window(), manager, link_.atom("SAVE_TARGETS"), property,
                          XCB_CURRENT_TIME);
    xcb_flush(link_.connection());
    const auto deadline = Clock::now() + longestHandOver;
    pollfd source{xcb_get_file_descriptor(link_.connection()), POLLIN, 0};
    while (handleEvents(), !isHandedOver_ && link_.isConnected() && Clock::now() < deadline)
        poll(&source, 1, milliseconds(deadline));
}

}  // namespace pimloft
