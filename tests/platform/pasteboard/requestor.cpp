// SPDX-License-Identifier: MIT
#include "requestor.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <poll.h>

namespace pimloft::test {

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

constexpr std::uint32_t everything = 100 << 20;

}  // namespace

Requestor::Requestor() : connection_(xcb_connect(nullptr, nullptr)), window_(xcb_generate_id(connection_)) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_,
                      xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
}

Requestor::~Requestor() {
    xcb_disconnect(connection_);
}

xcb_atom_t Requestor::atom(const char *name) {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, false, std::uint16_t(std::strlen(name)), name), nullptr));
    return reply->atom;
}

bool Requestor::waitFor(std::uint8_t type) {
    xcb_flush(connection_);
    for (;;) {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
            const int seen = event->response_type & 0x7f;
            if (seen == XCB_SELECTION_NOTIFY)
                notice_ = *reinterpret_cast<const xcb_selection_notify_event_t *>(event.get());
            if (seen == XCB_PROPERTY_NOTIFY)
                change_ = *reinterpret_cast<const xcb_property_notify_event_t *>(event.get());
            if (seen == XCB_SELECTION_REQUEST)
                request_ = *reinterpret_cast<const xcb_selection_request_event_t *>(event.get());
            const bool isNews = seen != XCB_PROPERTY_NOTIFY || change_.state == XCB_PROPERTY_NEW_VALUE;
            if (seen == type && isNews)
                return true;
        }
        pollfd source{xcb_get_file_descriptor(connection_), POLLIN, 0};
        if (poll(&source, 1, 5000) <= 0)
            return false;
    }
}

Requestor::Answer Requestor::take(xcb_atom_t property) {
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, true, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0, everything / 4),
        nullptr));
    if (!reply)
        return {};
    return {property,
            reply->type,
            {static_cast<const char *>(xcb_get_property_value(reply.get())),
             xcb_get_property_value_length(reply.get())}};
}

Requestor::Answer Requestor::ask(const char *target, const char *selection, xcb_timestamp_t time) {
    notice_ = {};
    xcb_convert_selection(connection_, window_, atom(selection), atom(target), atom(target), time);
    if (!waitFor(XCB_SELECTION_NOTIFY) || notice_.property == XCB_NONE)
        return {};
    return take(notice_.property);
}

std::optional<QByteArray> Requestor::paste(const char *target, const char *selection) {
    const Answer first = ask(target, selection);
    if (first.property == XCB_NONE)
        return std::nullopt;
    if (first.type != atom("INCR"))
        return first.bytes;
    QByteArray result;
    while (waitFor(XCB_PROPERTY_NOTIFY)) {
        const Answer piece = take(first.property);
        if (piece.bytes.isEmpty())
            return result;
        result += piece.bytes;
    }
    return std::nullopt;
}

std::vector<std::optional<QByteArray>> Requestor::pasteAll(const std::vector<const char *> &targets) {
    std::vector<xcb_atom_t> pairs;
    for (const char *target : targets) {
        pairs.push_back(atom(target));
        pairs.push_back(atom((std::string("TEST_") + target).c_str()));
    }
    const xcb_atom_t property = atom("TEST_MULTIPLE");
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, property, atom("ATOM_PAIR"), 32,
                        std::uint32_t(pairs.size()), pairs.data());
    xcb_convert_selection(connection_, window_, atom("CLIPBOARD"), atom("MULTIPLE"), property, 0);
    if (!waitFor(XCB_SELECTION_NOTIFY) || notice_.property == XCB_NONE)
        return {};
    const QByteArray answered = take(property).bytes;
    std::memcpy(pairs.data(), answered.constData(),
                std::min(std::size_t(answered.size()), pairs.size() * sizeof(xcb_atom_t)));
    std::vector<std::optional<QByteArray>> result;
    for (std::size_t i = 1; i < pairs.size(); i += 2)
        result.push_back(pairs[i] == XCB_NONE ? std::nullopt : std::optional(take(pairs[i]).bytes));
    return result;
}

void Requestor::own(const char *selection) {
    xcb_set_selection_owner(connection_, window_, atom(selection), XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

bool Requestor::owns(const char *selection) {
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection_, xcb_get_selection_owner(connection_, atom(selection)), nullptr));
    return reply->owner == window_;
}

std::string Requestor::serveAsManager() {
    if (!waitFor(XCB_SELECTION_REQUEST) || request_.target != atom("SAVE_TARGETS"))
        return "(not asked)";
    const auto content = paste("UTF8_STRING");
    own();
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = request_.requestor;
    notice.selection = request_.selection;
    notice.target = request_.target;
    notice.property = request_.property;
    xcb_send_event(connection_, false, request_.requestor, 0, reinterpret_cast<const char *>(&notice));
    xcb_flush(connection_);
    return content.value_or("(refused)").toStdString();
}

}  // namespace pimloft::test
