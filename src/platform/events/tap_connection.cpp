// SPDX-License-Identifier: MIT
#include "platform/events/tap_connection.h"

#include <xcb/xinput.h>
// A member of a structure in it is named as this keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xcb/xtest.h>

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

constexpr std::uint8_t allModifierBits = 0xff;
constexpr std::uint16_t lockParts = XCB_XKB_STATE_PART_MODIFIER_LOCK | XCB_XKB_STATE_PART_GROUP_LOCK;

/// Nothing where the server lacks it.
const xcb_query_extension_reply_t *extension(xcb_connection_t *connection, xcb_extension_t *id) {
    const auto *known = xcb_get_extension_data(connection, id);
    return known && known->present ? known : nullptr;
}

bool speaksXInput(xcb_connection_t *connection) {
    const XcbReply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    return version && std::pair(version->major_version, version->minor_version) >=
                          std::pair<std::uint16_t, std::uint16_t>(2, 2);
}

bool speaksXkb(xcb_connection_t *connection) {
    const XcbReply<xcb_xkb_use_extension_reply_t> reply(
        xcb_xkb_use_extension_reply(connection, xcb_xkb_use_extension(connection, 1, 0), nullptr));
    return reply && reply->supported;
}

struct Locks {
    std::uint8_t modifiers;
    std::uint8_t group;
    friend bool operator==(const Locks &, const Locks &) = default;
};

std::optional<Locks> locksOf(xcb_connection_t *connection, std::uint16_t device) {
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(connection, xcb_xkb_get_state(connection, device), nullptr));
    return state ? std::optional<Locks>({state->lockedMods, state->lockedGroup}) : std::nullopt;
}

void setLocks(xcb_connection_t *connection, std::uint16_t device, const Locks &locks) {
    xcb_xkb_latch_lock_state(connection, device, allModifierBits, locks.modifiers, true, locks.group, 0,
                             false, 0);
}

}  // namespace

TapConnection::TapConnection() : connection_(xcb_connect(nullptr, nullptr)) {
}

TapConnection::~TapConnection() {
    xcb_disconnect(connection_);
}

std::unique_ptr<TapConnection> TapConnection::open() {
    std::unique_ptr<TapConnection> tap(new TapConnection);
    return tap->start() ? std::move(tap) : nullptr;
}

bool TapConnection::start() {
    if (isLost())
        return false;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    for (xcb_extension_t *id : {&xcb_input_id, &xcb_xkb_id, &xcb_test_id})
        xcb_prefetch_extension_data(connection_, id);
    const auto *input = extension(connection_, &xcb_input_id);
    const auto *xkb = extension(connection_, &xcb_xkb_id);
    if (!input || !xkb || !extension(connection_, &xcb_test_id) || !speaksXInput(connection_) ||
        !speaksXkb(connection_))
        return false;
    xinput_ = input->major_opcode;
    xkb_ = xkb->first_event;
    // A program that has the server for itself does not hold up the keys.
    xcb_test_grab_control(connection_, true);
    window_ = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, window_, root_, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    roundTrip(connection_);
    return !isLost();
}

bool TapConnection::isToBeTaken(const KeyDevice &device) const {
    // What another program took, or the user put aside, does not type.
    return !device.typesForPrograms && !device.floats && device.master == master_ &&
           !taken_.contains(device.id);
}

bool TapConnection::grabAll(TapState &state) {
    master_ = masterKeyboard(connection_);
    const std::vector<KeyDevice> keyboards = keyDevices(connection_);
    const auto xtest = std::find_if(keyboards.begin(), keyboards.end(), [this](const KeyDevice &each) {
        return each.typesForPrograms && each.master == master_;
    });
    const bool hasAny = std::any_of(keyboards.begin(), keyboards.end(),
                                    [this](const KeyDevice &each) { return isToBeTaken(each); });
    if (xtest == keyboards.end() || !hasAny)
        return false;
    xtest_ = xtest->id;
    takeMapFrom(keyboards);

    // The one value follows its header on the wire.
    struct Selection {
        xcb_input_event_mask_t header;
        std::uint32_t mask;
    };
    const Selection hierarchy{{XCB_INPUT_DEVICE_ALL, 1}, XCB_INPUT_XI_EVENT_MASK_HIERARCHY};
    const Selection source{{master_, 1}, XCB_INPUT_XI_EVENT_MASK_DEVICE_CHANGED};
    xcb_input_xi_select_events(connection_, root_, 1, &hierarchy.header);
    xcb_input_xi_select_events(connection_, root_, 1, &source.header);
    constexpr std::uint16_t mapEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    xcb_xkb_select_events(connection_, XCB_XKB_ID_USE_CORE_KBD, mapEvents, 0, mapEvents, 0xff, 0xff, nullptr);
    selectLocks(master_);

    for (const KeyDevice &each : keyboards)
        if (isToBeTaken(each) && !grab(each.id)) {
            ungrabAll();
            return false;
        }
    for (const std::uint16_t id : taken_)
        add(state, id);
    if (const auto locks = locksOf(connection_, master_))
        setLocks(connection_, xtest_, *locks);
    copyLocksToTaken();
    return !isLost();
}

/// The layout that the user types in is that of the keyboard in use; typing for the user must not change it.
void TapConnection::takeMapFrom(const std::vector<KeyDevice> &keyboards) {
    const KeymapImage inUse = KeymapImage::read(connection_, master_);
    map_ = KeymapImage::read(connection_, xtest_);
    KeymapImage wanted;
    bool isFirst = true;
    for (const KeyDevice &each : keyboards) {
        if (!isToBeTaken(each))
            continue;
        KeymapImage image = KeymapImage::read(connection_, each.id);
        if (isFirst || image == inUse)
            wanted = std::move(image);
        isFirst = false;
    }
    if (wanted == map_)
        return;
    wanted.write(connection_, xtest_);
    // The keyboard in use is only told of it when the XTEST keyboard was not the last one that typed.
    if (wanted != inUse)
        wanted.write(connection_, master_);
    map_ = KeymapImage::read(connection_, xtest_);
}

void TapConnection::selectLocks(std::uint16_t device) {
    xcb_xkb_select_events_details_t details{};
    details.affectState = lockParts;
    details.stateDetails = lockParts;
    xcb_xkb_select_events_aux(connection_, device, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0, &details);
}

bool TapConnection::grab(std::uint16_t device) {
    constexpr std::uint32_t keys = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;
    const auto cookie = xcb_input_xi_grab_device(connection_, root_, XCB_CURRENT_TIME, XCB_NONE, device,
                                                 XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
                                                 XCB_INPUT_GRAB_OWNER_NO_OWNER, 1, &keys);
    const XcbReply<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(connection_, cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        return false;
    taken_.insert(device);
    selectLocks(device);
    return true;
}

void TapConnection::add(TapState &state, std::uint16_t device) {
    state.add(device, {.held = keysDownOn(connection_, device),
                       .seen = keysDown(connection_),
                       .typed = keysDownOn(connection_, xtest_)});
}

void TapConnection::grabNew(TapState &state) {
    for (const KeyDevice &each : keyDevices(connection_)) {
        if (!isToBeTaken(each) || !grab(each.id))
            continue;
        add(state, each.id);
        copyLocksToTaken();
    }
}

void TapConnection::ungrabAll() {
    for (const std::uint16_t device : std::exchange(taken_, {}))
        xcb_input_xi_ungrab_device(connection_, XCB_CURRENT_TIME, device);
    roundTrip(connection_);
}

void TapConnection::carryOut(TapState::Actions actions) {
    for (const TapAction &action : actions)
        fakeKey(connection_, action.key, action.down);
    xcb_flush(connection_);
}

bool TapConnection::read(std::vector<Event> &events) {
    const XcbReply<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
    if (!event)
        return false;
    const int type = event->response_type & 0x7f;
    if (type == xkb_) {
        const bool isLock = event->pad0 == XCB_XKB_STATE_NOTIFY;
        events.push_back({isLock ? Event::locksChanged : Event::mapChanged});
        return true;
    }
    const auto &key = reinterpret_cast<const xcb_input_key_press_event_t &>(*event);
    if (type != XCB_GE_GENERIC || key.extension != xinput_)
        return true;
    const auto &change = reinterpret_cast<const xcb_input_device_changed_event_t &>(*event);
    switch (key.event_type) {
    case XCB_INPUT_KEY_PRESS:
    case XCB_INPUT_KEY_RELEASE:
        // The server repeats the key that is pressed in its place.
        if (!(key.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT))
            events.push_back(
                {Event::key, {key.deviceid, TapKey(key.detail), key.event_type == XCB_INPUT_KEY_PRESS}});
        break;
    case XCB_INPUT_HIERARCHY:
        readHierarchy(*event, events);
        break;
    case XCB_INPUT_DEVICE_CHANGED:
        // Something else types than what types for programs: it came back without a word.
        if (change.reason == XCB_INPUT_CHANGE_REASON_SLAVE_SWITCH && change.sourceid != xtest_)
            events.push_back({Event::keyboardCame});
        break;
    default:
        break;
    }
    return true;
}

void TapConnection::readHierarchy(const xcb_generic_event_t &event, std::vector<Event> &events) const {
    const auto &hierarchy = reinterpret_cast<const xcb_input_hierarchy_event_t &>(event);
    constexpr std::uint32_t came =
        XCB_INPUT_HIERARCHY_MASK_DEVICE_ENABLED | XCB_INPUT_HIERARCHY_MASK_SLAVE_ATTACHED;
    constexpr std::uint32_t went = XCB_INPUT_HIERARCHY_MASK_DEVICE_DISABLED |
                                   XCB_INPUT_HIERARCHY_MASK_SLAVE_REMOVED |
                                   XCB_INPUT_HIERARCHY_MASK_SLAVE_DETACHED;
    for (auto each = xcb_input_hierarchy_infos_iterator(&hierarchy); each.rem;
         xcb_input_hierarchy_info_next(&each)) {
        if (each.data->flags & went)
            events.push_back({Event::keyboardWent, {each.data->deviceid, 0, false}});
        if (each.data->flags & came)
            events.push_back({Event::keyboardCame});
    }
}

bool TapConnection::copyMapToTaken() {
    KeymapImage map = KeymapImage::read(connection_, xtest_);
    if (map == map_)
        return false;
    map_ = std::move(map);
    for (const std::uint16_t device : taken_)
        map_.write(connection_, device);
    xcb_flush(connection_);
    return true;
}

void TapConnection::copyLocksToTaken() {
    const auto locks = locksOf(connection_, master_);
    if (!locks)
        return;
    for (const std::uint16_t device : taken_)
        if (locksOf(connection_, device) != locks)
            setLocks(connection_, device, *locks);
    xcb_flush(connection_);
}

}  // namespace pimloft
