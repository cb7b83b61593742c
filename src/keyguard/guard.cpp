// SPDX-License-Identifier: MIT
#include "keyguard/guard.h"

#include "platform/x11/key_devices.h"
#include "platform/x11/xcb_reply.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>

namespace pimloft {

namespace {

using std::chrono::steady_clock;

/// A process that wakes so much later than it wanted to was itself held up, and the other with it.
constexpr std::chrono::milliseconds ownDelay{500};

}  // namespace

Guard::Guard(xcb_window_t tap) : connection_(xcb_connect(nullptr, nullptr)), tap_(tap) {
    if (xcb_connection_has_error(connection_))
        return;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const auto *extension = xcb_get_extension_data(connection_, &xcb_input_id);
    xinput_ = extension && extension->present ? extension->major_opcode : std::uint8_t(0);
    const XcbReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection_, xcb_input_xi_query_version(connection_, 2, 2), nullptr));
    // Not held up by a program that has the server for itself.
    xcb_test_grab_control(connection_, true);
}

Guard::~Guard() {
    xcb_disconnect(connection_);
}

int Guard::run() {
    if (!xinput_)
        return 1;
    listen(true);
    while (!done_) {
        pollfd sources[] = {{xcb_get_file_descriptor(connection_), POLLIN, 0}, {guardChannel, POLLIN, 0}};
        poll(sources, 2, millisecondsLeft());
        const bool typed = sawKey();
        if (xcb_connection_has_error(connection_))
            return 1;
        if (typed && state_ == State::waiting)
            isLast_ = false;
        if (sources[1].revents)
            hear();
        else if (typed && state_ == State::sleeping)
            pass();
        else if (deadline_ && steady_clock::now() >= *deadline_)
            pass();
    }
    return 0;
}

int Guard::millisecondsLeft() const {
    if (!deadline_)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline_ - steady_clock::now());
    return int(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
}

/// While it is asking anyway, keys are not to wake it.
void Guard::listen(bool on) {
    constexpr std::uint32_t presses = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS;
    // The one value follows its header on the wire.
    const struct {
        xcb_input_event_mask_t header;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL, 1}, on ? presses : 0};
    xcb_input_xi_select_events(connection_, root_, 1, &selection.header);
    xcb_flush(connection_);
}

bool Guard::sawKey() {
    bool seen = false;
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
        const auto &raw = reinterpret_cast<const xcb_ge_generic_event_t &>(*event);
        seen = seen || ((event->response_type & 0x7f) == XCB_GE_GENERIC && raw.extension == xinput_);
    }
    return seen;
}

/// What the program has to say.
void Guard::hear() {
    char answers[16];
    const ssize_t heard = recv(guardChannel, answers, sizeof answers, MSG_DONTWAIT);
    if (heard < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (heard <= 0) {
        takeBack();
        return;
    }
    if (state_ != State::waiting)
        return;
    state_ = isLast_ ? State::sleeping : State::resting;
    if (isLast_)
        deadline_.reset();
}

/// What a key, or the end of a deadline, leads to.
void Guard::pass() {
    const Instant now = steady_clock::now();
    switch (state_) {
    case State::sleeping:
        listen(false);
        isLast_ = false;
        if (asked_ && now < *asked_ + guardPatience) {
            state_ = State::due;
            deadline_ = *asked_ + guardPatience;
            return;
        }
        ask();
        return;
    case State::due:
        ask();
        return;
    case State::resting:
        isLast_ = true;
        listen(true);
        ask();
        return;
    case State::waiting:
        if (now > *deadline_ + ownDelay)
            deadline_ = now + guardPatience;
        else
            takeBack();
        return;
    }
}

void Guard::ask() {
    asked_ = steady_clock::now();
    deadline_ = *asked_ + guardPatience;
    state_ = State::waiting;
    constexpr char question = '?';
    if (send(guardChannel, &question, 1, MSG_DONTWAIT | MSG_NOSIGNAL) != 1 && errno != EAGAIN)
        takeBack();
}

void Guard::takeBack() {
    done_ = true;
    // First the connection, so that nothing that it has sent is still carried out afterwards.
    xcb_kill_client(connection_, tap_);
    roundTrip(connection_);
    for (const KeyDevice &device : keyDevices(connection_)) {
        if (!device.typesForPrograms)
            continue;
        const KeySet down = keysDownOn(connection_, device.id);
        for (std::size_t key = 0; key < down.size(); ++key)
            if (down.test(key))
                fakeKey(connection_, xcb_keycode_t(key), false);
    }
    roundTrip(connection_);
}

}  // namespace pimloft
