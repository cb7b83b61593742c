// SPDX-License-Identifier: MIT
#include "platform/x11/key_devices.h"

#include "platform/x11/xcb_reply.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <cstring>

namespace pimloft {

namespace {

template <typename Bits>
void add(KeySet &keys, const Bits &bits) {
    for (std::size_t key = 0; key < keys.size(); ++key)
        if (bits[key / 8] & (1 << (key % 8)))
            keys.set(key);
}

xcb_atom_t xtestMark(xcb_connection_t *connection) {
    constexpr const char *name = "XTEST Device";
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, false, std::uint16_t(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

bool hasKeys(const xcb_input_xi_device_info_t &device) {
    for (auto each = xcb_input_xi_device_info_classes_iterator(&device); each.rem;
         xcb_input_device_class_next(&each))
        if (each.data->type == XCB_INPUT_DEVICE_CLASS_TYPE_KEY)
            return true;
    return false;
}

}  // namespace

std::vector<KeyDevice> keyDevices(xcb_connection_t *connection) {
    std::vector<KeyDevice> keyboards;
    const auto *extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (!extension || !extension->present)
        return keyboards;
    const xcb_atom_t mark = xtestMark(connection);
    const XcbReply<xcb_input_xi_query_device_reply_t> devices(xcb_input_xi_query_device_reply(
        connection, xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL), nullptr));
    if (!devices)
        return keyboards;
    std::vector<xcb_input_xi_get_property_cookie_t> marks;
    for (auto device = xcb_input_xi_query_device_infos_iterator(devices.get()); device.rem;
         xcb_input_xi_device_info_next(&device)) {
        const bool floats = device.data->type == XCB_INPUT_DEVICE_TYPE_FLOATING_SLAVE;
        if ((!floats && device.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD) || !device.data->enabled ||
            !hasKeys(*device.data))
            continue;
        keyboards.push_back({device.data->deviceid, false, floats, device.data->attachment});
        marks.push_back(xcb_input_xi_get_property(connection, device.data->deviceid, false, mark,
                                                  XCB_ATOM_INTEGER, 0, 1));
    }
    for (std::size_t i = 0; i < keyboards.size(); ++i) {
        const XcbReply<xcb_input_xi_get_property_reply_t> marked(
            xcb_input_xi_get_property_reply(connection, marks[i], nullptr));
        keyboards[i].typesForPrograms = marked && marked->num_items > 0;
    }
    return keyboards;
}

std::uint16_t masterKeyboard(xcb_connection_t *connection) {
    const XcbReply<xcb_input_xi_get_client_pointer_reply_t> pointer(xcb_input_xi_get_client_pointer_reply(
        connection, xcb_input_xi_get_client_pointer(connection, XCB_NONE), nullptr));
    const XcbReply<xcb_input_xi_query_device_reply_t> devices(xcb_input_xi_query_device_reply(
        connection, xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL_MASTER), nullptr));
    if (!devices)
        return 0;
    for (auto device = xcb_input_xi_query_device_infos_iterator(devices.get()); device.rem;
         xcb_input_xi_device_info_next(&device)) {
        const bool isChosen = !pointer || !pointer->set || device.data->attachment == pointer->deviceid;
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_MASTER_KEYBOARD && isChosen)
            return device.data->deviceid;
    }
    return 0;
}

KeySet keysDownOn(xcb_connection_t *connection, std::uint16_t device) {
    KeySet down;
    const XcbReply<xcb_input_query_device_state_reply_t> state(xcb_input_query_device_state_reply(
        connection, xcb_input_query_device_state(connection, std::uint8_t(device)), nullptr));
    if (!state)
        return down;
    for (auto part = xcb_input_query_device_state_classes_iterator(state.get()); part.rem;
         xcb_input_input_state_next(&part)) {
        xcb_input_input_state_data_t data{};
        xcb_input_input_state_data_unpack(xcb_input_input_state_data(part.data), part.data->class_id, &data);
        if (part.data->class_id == XCB_INPUT_INPUT_CLASS_KEY)
            add(down, data.key.keys);
    }
    return down;
}

KeySet keysDown(xcb_connection_t *connection) {
    KeySet down;
    const XcbReply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    if (reply)
        add(down, reply->keys);
    return down;
}

void fakeKey(xcb_connection_t *connection, xcb_keycode_t key, bool down) {
    xcb_test_fake_input(connection, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key, XCB_CURRENT_TIME, XCB_NONE,
                        0, 0, 0);
}

void roundTrip(xcb_connection_t *connection) {
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

}  // namespace pimloft
