// SPDX-License-Identifier: MIT
#include "platform/x11/x11_raw_input.h"

#include <xcb/xinput.h>

namespace pimloft {

namespace {

struct RawEvent {
    X11RawInput::Kind kind;
    std::uint16_t type;
    std::uint32_t mask;
};

constexpr RawEvent rawEvents[] = {
    {X11RawInput::keyPress, XCB_INPUT_RAW_KEY_PRESS, XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS},
    {X11RawInput::keyRelease, XCB_INPUT_RAW_KEY_RELEASE, XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE},
    {X11RawInput::buttonPress, XCB_INPUT_RAW_BUTTON_PRESS, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS},
    {X11RawInput::buttonRelease, XCB_INPUT_RAW_BUTTON_RELEASE, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE},
    {X11RawInput::motion, XCB_INPUT_RAW_MOTION, XCB_INPUT_XI_EVENT_MASK_RAW_MOTION},
};

}  // namespace

X11RawInput::Watch::~Watch() {
    input_.interests_.erase(key_);
    input_.select();
}

void X11RawInput::Watch::want(unsigned kinds) {
    input_.interests_[key_].kinds = kinds;
    input_.select();
}

X11RawInput::X11RawInput(X11Session &session) : session_(session) {
    const auto *extension = xcb_get_extension_data(session.connection(), &xcb_input_id);
    if (!extension || !extension->present)
        return;
    opcode_ = extension->major_opcode;
    // Before 2.2 raw events stop while another program holds the pointer, as a window manager does in a move.
    const XcbReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        session.connection(), xcb_input_xi_query_version(session.connection(), 2, 2), nullptr));
    supported_ = version && std::pair(version->major_version, version->minor_version) >=
                                std::pair<std::uint16_t, std::uint16_t>(2, 2);
    if (supported_)
        events_ = session.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
}

std::unique_ptr<X11RawInput::Watch> X11RawInput::watch(Handler handler) {
    const std::uint32_t key = nextKey_++;
    interests_[key].handler = std::move(handler);
    return std::make_unique<Watch>(*this, key);
}

void X11RawInput::select() {
    std::uint32_t wanted = 0;
    for (const auto &[key, interest] : interests_)
        for (const RawEvent &raw : rawEvents)
            if (interest.kinds & raw.kind)
                wanted |= raw.mask;
    if (!supported_ || wanted == selected_)
        return;
    selected_ = wanted;
    // The one value follows its header on the wire.
    const struct {
        xcb_input_event_mask_t header;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, wanted};
    xcb_input_xi_select_events(session_.connection(), session_.root(), 1, &selection.header);
    xcb_flush(session_.connection());
}

std::uint32_t X11RawInput::now() const {
    const auto cookie = xcb_get_input_focus(session_.connection());
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(session_.connection(), cookie, nullptr));
    return cookie.sequence;
}

X11RawInput::Pointer X11RawInput::pointer() const {
    const XcbReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        session_.connection(), xcb_query_pointer(session_.connection(), session_.root()), nullptr));
    if (!reply)
        return {};
    return {QPoint(reply->root_x, reply->root_y), (reply->mask & XCB_BUTTON_MASK_1) != 0, reply->child};
}

void X11RawInput::handle(const xcb_generic_event_t &event) {
    if (X11Session::type(event) != XCB_GE_GENERIC)
        return;
    const auto &raw = reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event);
    if (raw.extension != opcode_)
        return;
    for (const RawEvent &each : rawEvents) {
        if (each.type != raw.event_type)
            continue;
        // A handler may end any watch, so the next one is looked up by its key.
        for (auto interest = interests_.begin(); interest != interests_.end();) {
            const std::uint32_t key = interest->first;
            if (interest->second.kinds & each.kind) {
                const Handler call = interest->second.handler;
                call({each.kind, raw.detail, raw.time, raw.full_sequence});
            }
            interest = interests_.upper_bound(key);
        }
    }
}

}  // namespace pimloft
