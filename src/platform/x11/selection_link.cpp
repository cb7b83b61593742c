// SPDX-License-Identifier: MIT
#include "platform/x11/selection_link.h"

#include "platform/x11/client_process.h"
#include "platform/x11/xcb_extension.h"

#include <xcb/xfixes.h>

#include <algorithm>
#include <cstring>

namespace pimloft {

namespace {

/// What is read at once, in bytes: little enough for the server to serve others in between.
constexpr std::uint32_t piece = 1 << 20;

XcbReply<xcb_get_property_reply_t> part(xcb_connection_t *connection, xcb_window_t window,
                                        xcb_atom_t property, qsizetype offset, std::uint32_t length) {
    const auto cookie = xcb_get_property(connection, false, window, property, XCB_GET_PROPERTY_TYPE_ANY,
                                         std::uint32_t(offset / 4), length / 4);
    return XcbReply<xcb_get_property_reply_t>(xcb_get_property_reply(connection, cookie, nullptr));
}

}  // namespace

std::vector<std::uint32_t> SelectionLink::Value::values() const {
    if (format != 32 || bytes.isEmpty())
        return {};
    std::vector<std::uint32_t> result(std::size_t(bytes.size()) / sizeof(std::uint32_t));
    std::memcpy(result.data(), bytes.constData(), result.size() * sizeof(std::uint32_t));
    return result;
}

SelectionLink::SelectionLink() {
    int screen = 0;
    connection_ = xcb_connect(nullptr, &screen);
    if (!isConnected())
        return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (; screen > 0; --screen)
        xcb_screen_next(&screens);
    root_ = screens.data->root;
    window_ = makeWindow();
}

SelectionLink::~SelectionLink() {
    xcb_disconnect(connection_);
}

void SelectionLink::watchOwner(xcb_atom_t selection) {
    if (!isConnected() || !hasExtension(connection_, &xcb_xfixes_id))
        return;
    const XcbReply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(connection_, xcb_xfixes_query_version(connection_, 1, 0), nullptr));
    if (!version)
        return;
    xcb_xfixes_select_selection_input(connection_, window_, selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    ownerNotice_ =
        xcb_get_extension_data(connection_, &xcb_xfixes_id)->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    // From here on no change is missed.
    owner(selection);
}

xcb_atom_t SelectionLink::atom(const QByteArray &name) {
    const auto known = atoms_.find(name.toStdString());
    if (known != atoms_.end())
        return known->second;
    if (!isConnected())
        return XCB_ATOM_NONE;
    const auto cookie = xcb_intern_atom(connection_, false, std::uint16_t(name.size()), name.constData());
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    atoms_.emplace(name.toStdString(), atom);
    return atom;
}

std::vector<QByteArray> SelectionLink::names(const std::vector<xcb_atom_t> &atoms) {
    std::vector<xcb_get_atom_name_cookie_t> asked;
    for (const xcb_atom_t each : atoms)
        asked.push_back(xcb_get_atom_name(connection_, each));
    std::vector<QByteArray> result;
    for (const auto cookie : asked) {
        const XcbReply<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(connection_, cookie, nullptr));
        result.push_back(reply ? QByteArray(xcb_get_atom_name_name(reply.get()),
                                            xcb_get_atom_name_name_length(reply.get()))
                               : QByteArray());
    }
    return result;
}

QByteArray SelectionLink::textType(xcb_atom_t wanted) {
    for (const char *name : {"UTF8_STRING", "STRING", "COMPOUND_TEXT"})
        if (atom(name) == wanted)
            return name;
    return {};
}

xcb_window_t SelectionLink::makeWindow() {
    const xcb_window_t window = xcb_generate_id(connection_);
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root_, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    return window;
}

bool SelectionLink::made(xcb_window_t window) const {
    const xcb_setup_t *setup = xcb_get_setup(connection_);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

qsizetype SelectionLink::largestRequest() const {
    constexpr qsizetype head = 64;
    return qsizetype(xcb_get_maximum_request_length(connection_)) * 4 - head;
}

xcb_window_t SelectionLink::owner(xcb_atom_t selection) {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, xcb_get_selection_owner(connection_, selection), nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_NONE);
}

std::optional<ProcessId> SelectionLink::process(xcb_window_t window) {
    return isConnected() ? clientProcess(connection_, window) : std::nullopt;
}

xcb_atom_t SelectionLink::type(xcb_window_t window, xcb_atom_t property) {
    const auto reply = part(connection_, window, property, 0, 0);
    return reply ? reply->type : xcb_atom_t(XCB_NONE);
}

SelectionLink::Value SelectionLink::take(xcb_window_t window, xcb_atom_t property, qsizetype cap) {
    Value value;
    for (;;) {
        const qsizetype offset = value.bytes.size();
        const auto reply = part(connection_, window, property, offset, piece);
        if (!reply || (offset > 0 && (reply->type != value.type || reply->format != value.format)))
            return {};  // gone, or replaced while it was read
        value.type = reply->type;
        value.format = reply->format;
        const qsizetype length = xcb_get_property_value_length(reply.get());
        if (offset + length + qsizetype(reply->bytes_after) > cap) {
            value.isCut = true;
            return value;
        }
        value.bytes.append(static_cast<const char *>(xcb_get_property_value(reply.get())), length);
        if (reply->bytes_after == 0 || length == 0)
            break;
    }
    if (value.type != XCB_NONE)
        xcb_delete_property(connection_, window, property);
    return value;
}

}  // namespace pimloft
