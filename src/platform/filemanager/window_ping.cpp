// SPDX-License-Identifier: MIT
#include "platform/filemanager/window_ping.h"

#include <QCoreApplication>

#include <utility>

namespace pimloft {

WindowPing::WindowPing(xcb_window_t window)
    : window_(window), cookie_(std::uint32_t(QCoreApplication::applicationPid()) << 8),
      events_(session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
    // Some toolkits answer to those who hear of the root, others to those who hear of its children.
    session_.select(session_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void WindowPing::send(std::function<void()> answered) {
    answered_ = std::move(answered);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window_;
    message.type = session_.atom("WM_PROTOCOLS");
    message.data.data32[0] = session_.atom("_NET_WM_PING");
    message.data.data32[1] = ++cookie_;
    message.data.data32[2] = window_;
    xcb_send_event(session_.connection(), false, window_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(session_.connection());
}

void WindowPing::handle(const xcb_generic_event_t &event) {
    if (X11Session::type(event) != XCB_CLIENT_MESSAGE)
        return;
    const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
    const bool isAnswer = message.type == session_.atom("WM_PROTOCOLS") &&
                          message.data.data32[0] == session_.atom("_NET_WM_PING") &&
                          message.data.data32[1] == cookie_ && message.data.data32[2] == window_;
    if (!isAnswer || !answered_)
        return;
    // It may well end this ping.
    const auto answered = std::exchange(answered_, nullptr);
    answered();
}

}  // namespace pimloft
