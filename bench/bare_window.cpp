// SPDX-License-Identifier: MIT
#include "bare_window.h"

#include "platform/x11/xcb_reply.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace pimloft::bench {

namespace {

/// Pixels from the left edge that count as being there.
constexpr int edge = 5;

}  // namespace

BareWindow::BareWindow(int top, int size)
    : connection_(xcb_connect(nullptr, nullptr)), window_(xcb_generate_id(connection_)) {
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    root_ = screen->root;
    xcb_input_xi_query_version(connection_, 2, 2);
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } motion{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_MOTION};
    xcb_input_xi_select_events(connection_, root_, 1, &motion.head);
    const std::uint32_t values[] = {screen->white_pixel, true};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, root_, 0, std::int16_t(top),
                      std::uint16_t(size), std::uint16_t(size), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    // What was asked for holds when this returns.
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    thread_ = std::thread([this] { watch(); });
}

BareWindow::~BareWindow() {
    // Ends the thread's waiting: an event to the window that only this program can have sent.
    xcb_client_message_event_t end{};
    end.response_type = XCB_CLIENT_MESSAGE;
    end.format = 32;
    end.window = window_;
    xcb_send_event(connection_, false, window_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&end));
    xcb_flush(connection_);
    thread_.join();
    xcb_disconnect(connection_);
}

void BareWindow::watch() {
    bool isShown = false;
    for (;;) {
        const XcbReply<xcb_generic_event_t> event(xcb_wait_for_event(connection_));
        if (!event || (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE)
            return;
        const XcbReply<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(connection_, xcb_query_pointer(connection_, root_), nullptr));
        const bool isThere = pointer && pointer->root_x <= edge;
        if (isThere == isShown)
            continue;
        isShown = isThere;
        isThere ? xcb_map_window(connection_, window_) : xcb_unmap_window(connection_, window_);
        xcb_flush(connection_);
    }
}

}  // namespace pimloft::bench
