// SPDX-License-Identifier: MIT
#include "platform/x11/x11_session.h"

#include "platform/x11/xcb_extension.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <cstring>

namespace pimloft {

namespace {

/// Longest property that is read, in units of four bytes: lists of windows and titles are far below it.
constexpr std::uint32_t longestProperty = 1 << 16;

}  // namespace

X11Session::X11Session() {
    int screen = 0;
    connection_ = xcb_connect(nullptr, &screen);
    if (!isConnected())
        return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (; screen > 0; --screen)
        xcb_screen_next(&screens);
    root_ = screens.data->root;

    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { dispatch(true); });
    // Waiting for a reply also reads events, which then no longer wake the socket.
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { dispatch(false); });
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { dispatch(false); });
}

X11Session::~X11Session() {
    notifier_.reset();
    xcb_disconnect(connection_);
}

bool X11Session::hasExtension(xcb_extension_t *extension) {
    return pimloft::hasExtension(connection_, extension);
}

xcb_atom_t X11Session::atom(const char *name) {
    const auto known = atoms_.find(name);
    if (known != atoms_.end())
        return known->second;
    const auto cookie = xcb_intern_atom(connection_, false, std::uint16_t(std::strlen(name)), name);
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    atoms_.emplace(name, atom);
    return atom;
}

xcb_get_property_cookie_t X11Session::askProperty(xcb_window_t window, xcb_atom_t name) {
    return xcb_get_property(connection_, false, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
}

std::vector<std::uint32_t> X11Session::values32(xcb_get_property_cookie_t asked) {
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, asked, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::vector<std::uint32_t> X11Session::property32(xcb_window_t window, xcb_atom_t name) {
    return values32(askProperty(window, name));
}

QByteArray X11Session::property8(xcb_window_t window, xcb_atom_t name) {
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_, askProperty(window, name), nullptr));
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())), qsizetype(reply->value_len)};
}

bool X11Session::exists(xcb_window_t window) {
    const XcbReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return reply != nullptr;
}

bool X11Session::isMapped(xcb_window_t window) {
    const auto cookie = xcb_get_window_attributes(connection_, window);
    const XcbReply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(connection_, cookie, nullptr));
    return reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
}

void X11Session::select(xcb_window_t window, std::uint32_t eventMask) {
    // The window's end must be known: a later window may get the same id, and is then a new one to select.
    eventMask |= XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    std::uint32_t &mask = masks_[window];
    if ((mask & eventMask) == eventMask)
        return;
    mask |= eventMask;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection_);
}

void X11Session::sendToRoot(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5> &data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(connection_, false, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(connection_);
}

void X11Session::roundTrip() {
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

std::unique_ptr<X11Session::Subscription> X11Session::subscribe(Handler handler) {
    const std::uint32_t key = nextHandler_++;
    handlers_.emplace(key, std::move(handler));
    return std::make_unique<Subscription>(*this, key);
}

xcb_window_t X11Session::goneWindow(const xcb_generic_event_t &event) {
    if (type(event) == XCB_DESTROY_NOTIFY)
        return reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window;
    const bool isError = event.response_type == 0;
    if (isError && reinterpret_cast<const xcb_generic_error_t &>(event).error_code == XCB_WINDOW)
        return reinterpret_cast<const xcb_value_error_t &>(event).bad_value;
    return XCB_NONE;
}

void X11Session::dispatch(bool readSocket) {
    const auto next = [&] {
        return XcbReply<xcb_generic_event_t>(readSocket ? xcb_poll_for_event(connection_)
                                                        : xcb_poll_for_queued_event(connection_));
    };
    while (const auto event = next()) {
        masks_.erase(goneWindow(*event));
        // A handler may subscribe, or end any subscription, so the next one is looked up by its key.
        for (auto handler = handlers_.begin(); handler != handlers_.end();) {
            const std::uint32_t key = handler->first;
            const Handler call = handler->second;
            call(*event);
            handler = handlers_.upper_bound(key);
        }
    }
    if (isConnected() || !notifier_->isEnabled())
        return;
    notifier_->setEnabled(false);
    if (onLost)
        onLost();
}

}  // namespace pimloft
