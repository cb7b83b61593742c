// SPDX-License-Identifier: MIT
#include "desktop/support/tray_host.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace pimloft::test {

TrayHost::TrayHost(const QString &display)
    : connection_(xcb_connect(display.toLatin1().constData(), nullptr)) {
    xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    window_ = xcb_generate_id(connection_);
    const std::uint32_t values[] = {true, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, std::int16_t(frame.x()),
                      std::int16_t(frame.y()), std::uint16_t(frame.width()), std::uint16_t(frame.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(connection_, window_);
    const xcb_atom_t tray = atom("_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(connection_, window_, tray, XCB_CURRENT_TIME);
    xcb_client_message_event_t manager = {};
    manager.response_type = XCB_CLIENT_MESSAGE;
    manager.format = 32;
    manager.window = screen->root;
    manager.type = atom("MANAGER");
    manager.data.data32[0] = XCB_CURRENT_TIME;
    manager.data.data32[1] = tray;
    manager.data.data32[2] = window_;
    xcb_send_event(connection_, false, screen->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&manager));
    xcb_flush(connection_);
}

TrayHost::~TrayHost() {
    xcb_disconnect(connection_);
}

xcb_atom_t TrayHost::atom(const char *name) const {
    const auto cookie = xcb_intern_atom(connection_, false, std::uint16_t(std::strlen(name)), name);
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

void TrayHost::takeIn(xcb_window_t icon) {
    xcb_reparent_window(connection_, icon, window_, 0, 0);
    const std::uint32_t size[] = {std::uint32_t(frame.width()), std::uint32_t(frame.height())};
    xcb_configure_window(connection_, icon, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_map_window(connection_, icon);
    xcb_flush(connection_);
    hasIcon_ = true;
}

bool TrayHost::hasIcon() {
    constexpr std::uint32_t requestDock = 0;
    while (xcb_generic_event_t *event = xcb_poll_for_event(connection_)) {
        const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> owned(event, &std::free);
        const auto *message = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message->window == window_ &&
            message->data.data32[1] == requestDock)
            takeIn(message->data.data32[2]);
    }
    return hasIcon_;
}

void TrayHost::forgetIcon() {
    hasIcon();
    hasIcon_ = false;
}

}  // namespace pimloft::test
