// SPDX-License-Identifier: MIT
#include "platform/x11/selection_sender.h"

#include <algorithm>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// What is sent at once, unless the server takes less.
constexpr qsizetype usualPiece = 256 * 1024;

/// A program that takes no piece for so long has given up.
constexpr auto sendPatience = 10s;

/// So many programs are served in pieces at a time; it bounds the content that hung ones keep alive.
constexpr std::size_t mostTransfers = 16;

/// A program asks for a handful of forms at once.
constexpr qsizetype longestMultiple = 64 * 2 * sizeof(xcb_atom_t);

bool isBefore(xcb_timestamp_t time, xcb_timestamp_t other) {
    return std::int32_t(time - other) < 0;  // the server's clock starts over every 49 days
}

}  // namespace

SelectionSender::SelectionSender(SelectionLink &link)
    : link_(link), targets_(link.atom("TARGETS")), timestamp_(link.atom("TIMESTAMP")),
      multiple_(link.atom("MULTIPLE")), saveTargets_(link.atom("SAVE_TARGETS")),
      incremental_(link.atom("INCR")), pair_(link.atom("ATOM_PAIR")), nothing_(link.atom("NULL")),
      piece_(std::min(usualPiece, link.largestRequest())) {
}

void SelectionSender::answer(const xcb_selection_request_event_t &request, const HeldSelection &held,
                             Time now) {
    xcb_selection_request_event_t wanted = request;
    if (wanted.property == XCB_NONE)
        wanted.property = wanted.target;  // programs from before there was a choice
    const bool isOfEarlierOwner =
        held.since && wanted.time != XCB_CURRENT_TIME && isBefore(wanted.time, *held.since);
    const bool isPut = held.content && !isOfEarlierOwner &&
                       (wanted.target == multiple_ ? request.property && putMultiple(wanted, held, now)
                                                   : put(wanted, held, now));
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = isPut ? wanted.property : xcb_atom_t(XCB_NONE);
    xcb_send_event(link_.connection(), false, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&notice));
}

bool SelectionSender::put(const xcb_selection_request_event_t &request, const HeldSelection &held, Time now) {
    if (request.target == targets_) {
        putTargets(request, held);
        return true;
    }
    if (request.target == timestamp_ && held.since) {
        putValues(request, XCB_ATOM_INTEGER, {*held.since});
        return true;
    }
    if (request.target == saveTargets_) {
        putValues(request, nothing_, {});
        return true;
    }
    for (const SelectionForm &form : *held.content)
        if (link_.atom(form.target) == request.target)
            return putBytes(request, form, now);
    return false;
}

bool SelectionSender::putMultiple(const xcb_selection_request_event_t &request, const HeldSelection &held,
                                  Time now) {
    const SelectionLink::Value pairs = link_.take(request.requestor, request.property, longestMultiple);
    std::vector<std::uint32_t> values = pairs.values();
    if (values.empty())
        return false;
    xcb_selection_request_event_t each = request;
    for (std::size_t i = 0; i + 1 < values.size(); i += 2) {
        each.target = values[i];
        each.property = values[i + 1];
        if (each.target == multiple_ || each.property == XCB_NONE || !put(each, held, now))
            values[i + 1] = XCB_NONE;
    }
    putValues(request, pair_, values);
    return true;
}

void SelectionSender::putTargets(const xcb_selection_request_event_t &request, const HeldSelection &held) {
    std::vector<std::uint32_t> values{targets_, multiple_, saveTargets_};
    if (held.since)
        values.push_back(timestamp_);
    for (const SelectionForm &form : *held.content)
        values.push_back(link_.atom(form.target));
    putValues(request, XCB_ATOM_ATOM, values);
}

void SelectionSender::putValues(const xcb_selection_request_event_t &request, xcb_atom_t type,
                                const std::vector<std::uint32_t> &values) {
    xcb_change_property(link_.connection(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, type,
                        32, std::uint32_t(values.size()), values.data());
}

bool SelectionSender::putBytes(const xcb_selection_request_event_t &request, const SelectionForm &form,
                               Time now) {
    const QByteArray bytes = form.bytes();
    const xcb_atom_t type = link_.atom(form.type);
    if (bytes.size() <= piece_) {
        xcb_change_property(link_.connection(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            type, 8, std::uint32_t(bytes.size()), bytes.constData());
        return true;
    }
    transfers_.remove_if([&request](const Transfer &each) {
        return each.requestor == request.requestor && each.property == request.property;
    });
    if (transfers_.size() >= mostTransfers)
        return false;
    if (!link_.made(request.requestor)) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(link_.connection(), request.requestor, XCB_CW_EVENT_MASK, &mask);
    }
    putValues(request, incremental_, {std::uint32_t(std::min(bytes.size(), qsizetype(UINT32_MAX)))});
    transfers_.push_back({request.requestor, request.property, type, bytes, 0, now});
    return true;
}

void SelectionSender::propertyChanged(const xcb_property_notify_event_t &event, Time now) {
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto transfer = std::find_if(transfers_.begin(), transfers_.end(), [&event](const Transfer &each) {
        return each.requestor == event.window && each.property == event.atom;
    });
    if (transfer == transfers_.end())
        return;
    const qsizetype length = std::min(piece_, transfer->bytes.size() - transfer->sent);
    xcb_change_property(link_.connection(), XCB_PROP_MODE_REPLACE, transfer->requestor, transfer->property,
                        transfer->type, 8, std::uint32_t(length),
                        transfer->bytes.constData() + transfer->sent);
    transfer->sent += length;
    transfer->last = now;
    if (length == 0)  // an empty piece is the end
        erase(transfer);
}

void SelectionSender::gone(xcb_window_t window) {
    transfers_.remove_if([window](const Transfer &each) { return each.requestor == window; });
}

void SelectionSender::expire(Time now) {
    for (auto transfer = transfers_.begin(); transfer != transfers_.end();)
        transfer = now - transfer->last < sendPatience ? std::next(transfer) : erase(transfer);
}

std::optional<SelectionSender::Time> SelectionSender::deadline() const {
    std::optional<Time> first;
    for (const Transfer &each : transfers_)
        first = std::min(first.value_or(each.last + sendPatience), Time(each.last + sendPatience));
    return first;
}

SelectionSender::Transfers::iterator SelectionSender::erase(Transfers::iterator transfer) {
    const xcb_window_t window = transfer->requestor;
    const auto next = transfers_.erase(transfer);
    const bool isServed = std::any_of(transfers_.begin(), transfers_.end(),
                                      [window](const Transfer &each) { return each.requestor == window; });
    if (!isServed && !link_.made(window)) {
        const std::uint32_t mask = XCB_EVENT_MASK_NO_EVENT;
        xcb_change_window_attributes(link_.connection(), window, XCB_CW_EVENT_MASK, &mask);
    }
    return next;
}

}  // namespace pimloft
